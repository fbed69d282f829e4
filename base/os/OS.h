#pragma once

// The process-wide services of the operating-system layer, reached through OS(). The first three
// (allocator, reference counts, keyboard state) are what every string, pointer and button relies
// on; later services (clipboard, files, drives) are added behind them. Each service sits behind an
// interface of its own so that a test driver or a display can substitute it without touching the
// others. Every service works from any thread.

#include <cstddef>

template <class T>
class LightweightString;

// Raw memory for shared blocks such as string bodies.
class iAllocator {
public:
    virtual ~iAllocator() = default;
    virtual void* allocate(std::size_t size) = 0;
    virtual void free(void* block) = 0;
};

// Reference counts by key: the key is the address of a 32-bit count word, which lives inside a
// counted object or in a separate allocation. Adding and releasing are atomic.
class iRefCountTable {
public:
    virtual ~iRefCountTable() = default;
    virtual void addRef(void* key) = 0;
    // Answers the count that remains after the release.
    virtual unsigned release(void* key) = 0;
    virtual unsigned count(void const* key) const = 0;
};

// Which modifier keys are held now, as the key-code modifier bits (0x1000000 Shift, 0x2000000 Ctrl,
// 0x4000000 Alt, 0x100000 command).
class iKeyboardState {
public:
    virtual ~iKeyboardState() = default;
    virtual bool isKeyDown(unsigned modifierMask) const = 0;
};

// Text to copy and paste. Two channels: the clipboard (copy, cut, paste) and the selection (what
// is selected now, pasted with the middle button).
class iClipboard {
public:
    enum Channel { Clipboard = 0, Selection = 1 };
    virtual ~iClipboard() = default;
    virtual void setText(Channel channel, LightweightString<wchar_t> const& text) = 0;
    virtual LightweightString<wchar_t> getText(Channel channel) = 0;
};

// Hands URLs and files to the desktop's opener. Substituted by tests so that nothing is launched.
class iShell {
public:
    virtual ~iShell() = default;
    virtual bool openURL(LightweightString<wchar_t> const& url) = 0;
    virtual bool openFile(LightweightString<wchar_t> const& path) = 0;
};

class iOS {
public:
    virtual ~iOS() = default;

    virtual iAllocator& allocator() = 0;
    virtual iRefCountTable& refCounts() = 0;
    virtual bool isKeyDown(unsigned modifierMask) const = 0;

    // The keyboard state is supplied by the display in use (or a test driver); null restores the
    // built-in one, which reports no key held.
    virtual void setKeyboardState(iKeyboardState* state) = 0;

    virtual void setClipboardText(LightweightString<wchar_t> const& text) = 0;
    virtual LightweightString<wchar_t> getClipboardText() = 0;
    virtual void setSelectionText(LightweightString<wchar_t> const& text) = 0;
    virtual LightweightString<wchar_t> getSelectionText() = 0;
    // The display in use supplies the clipboard; null restores the built-in one, which keeps the
    // text within the process.
    virtual void setClipboard(iClipboard* clipboard) = 0;

    // The family of the system's fixed-pitch font, looked up once.
    virtual LightweightString<wchar_t> getFixedPitchFontName() = 0;

    // Hand a URL or a file to the desktop's opener and return without waiting for it. They answer
    // whether the opener could be started, and never throw. The opener is xdg-open, or the program
    // that the environment variable PANELKIT_OPENER names.
    virtual bool openURL(LightweightString<wchar_t> const& url) = 0;
    virtual bool openFile(LightweightString<wchar_t> const& path) = 0;
    // Replaces the shell service behind openURL and openFile; null restores the built-in one.
    virtual void setShell(iShell* shell) = 0;

    // $HOME. The default folder, where file choosers start without a path, is the home folder.
    virtual LightweightString<wchar_t> getHomeDirectory() = 0;
    virtual LightweightString<wchar_t> getDefaultDirectory() = 0;

    // A file's modification time in local time as "05 Mar 2024 14:07", month names in English
    // whatever the locale.
    virtual LightweightString<wchar_t> formatFileTime(long long secondsSinceEpoch) = 0;
};

iOS* OS();
