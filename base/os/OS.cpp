#include "os/OS.h"

#include "os/CriticalSection.h"
#include "os/Paths.h"
#include "qor/LightweightString.h"
#include "qor/UTF8.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <fontconfig/fontconfig.h>
#include <locale.h>
#include <new>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace {

class MallocAllocator final : public iAllocator {
public:
    void* allocate(std::size_t size) override {
        void* block = std::malloc(size == 0 ? 1 : size);
        if (block == nullptr)
            throw std::bad_alloc();
        return block;
    }
    void free(void* block) override { std::free(block); }
};

class AtomicRefCounts final : public iRefCountTable {
public:
    void addRef(void* key) override {
        std::atomic_ref<unsigned>(*static_cast<unsigned*>(key))
            .fetch_add(1, std::memory_order_relaxed);
    }
    unsigned release(void* key) override {
        return std::atomic_ref<unsigned>(*static_cast<unsigned*>(key))
                   .fetch_sub(1, std::memory_order_acq_rel) -
               1;
    }
    unsigned count(void const* key) const override {
        return std::atomic_ref<unsigned>(*const_cast<unsigned*>(static_cast<unsigned const*>(key)))
            .load(std::memory_order_acquire);
    }
};

class NoKeysHeld final : public iKeyboardState {
public:
    bool isKeyDown(unsigned) const override { return false; }
};

class ProcessClipboard final : public iClipboard {
public:
    void setText(Channel channel, LightweightString<wchar_t> const& text) override {
        CriticalSection::Lock hold(lock_);
        texts_[channel == Selection ? 1 : 0] = text;
    }
    LightweightString<wchar_t> getText(Channel channel) override {
        CriticalSection::Lock hold(lock_);
        return texts_[channel == Selection ? 1 : 0];
    }

private:
    CriticalSection lock_;
    LightweightString<wchar_t> texts_[2];
};

constexpr char const* fallbackFixedPitchFamily = "DejaVu Sans Mono";
constexpr char const* defaultOpener = "xdg-open";
constexpr char const* openerVariable = "PANELKIT_OPENER";

// The family that fontconfig picks for "monospace"; empty when what it picks declares itself
// proportional (no fixed-pitch font is installed).
std::string matchFixedPitchFamily() {
    FcPattern* pattern = FcNameParse(reinterpret_cast<FcChar8 const*>("monospace"));
    if (pattern == nullptr)
        return {};
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(nullptr, pattern, &result);
    FcPatternDestroy(pattern);
    if (match == nullptr)
        return {};
    std::string family;
    FcChar8* name = nullptr;
    int spacing = FC_MONO;
    FcPatternGetInteger(match, FC_SPACING, 0, &spacing);
    if (spacing != FC_PROPORTIONAL &&
        FcPatternGetString(match, FC_FAMILY, 0, &name) == FcResultMatch)
        family = reinterpret_cast<char const*>(name);
    FcPatternDestroy(match);
    return family;
}

LightweightString<wchar_t> fixedPitchFamily() {
    static LightweightString<wchar_t> const family = [] {
        std::string matched = matchFixedPitchFamily();
        return fromUTF8(matched.empty() ? fallbackFixedPitchFamily : matched.c_str());
    }();
    return family;
}

std::string openerProgram() {
    char const* named = std::getenv(openerVariable);
    return named != nullptr && *named != '\0' ? named : defaultOpener;
}

// A thread waits for the child so that it leaves no zombie, while the caller goes on at once.
void reapInBackground(pid_t child) {
    try {
        std::thread([child] {
            int status = 0;
            while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
            }
        }).detach();
    } catch (std::system_error const&) {
        // Without a thread the child stays a zombie until the process ends; it has still started.
    }
}

// How an opener starts: in a session of its own, with stdin from /dev/null, an empty signal mask
// and the default SIGPIPE and SIGCHLD handling, whatever this process has set.
class DetachedSpawn {
public:
    DetachedSpawn() {
        posix_spawnattr_init(&attributes_);
        posix_spawn_file_actions_init(&actions_);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        sigaddset(&signals, SIGPIPE);
        sigaddset(&signals, SIGCHLD);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK |
                                                   POSIX_SPAWN_SETSIGDEF);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }
    ~DetachedSpawn() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    DetachedSpawn(DetachedSpawn const&) = delete;
    DetachedSpawn& operator=(DetachedSpawn const&) = delete;

    // Starts the program, found on PATH, on one argument with this process's environment.
    bool start(std::string program, std::string argument) {
        char* argv[] = {program.data(), argument.data(), nullptr};
        pid_t child = 0;
        if (::posix_spawnp(&child, program.c_str(), &actions_, &attributes_, argv, environ) != 0)
            return false;
        reapInBackground(child);
        return true;
    }

private:
    posix_spawnattr_t attributes_;
    posix_spawn_file_actions_t actions_;
};

// A target that starts with '-' would read as an option, so it goes as "./-name".
bool openWithShell(LightweightString<wchar_t> const& target) noexcept {
    try {
        if (target.empty())
            return false;
        std::string operand = toUTF8(target).str();
        if (operand.front() == '-')
            operand.insert(0, "./");
        return DetachedSpawn().start(openerProgram(), operand);
    } catch (...) {
        return false;
    }
}

// The C locale's month names, whatever setlocale says.
locale_t cLocale() {
    static locale_t const c = ::newlocale(LC_ALL_MASK, "C", locale_t(0));
    return c;
}

LightweightString<wchar_t> formatLocalTime(long long secondsSinceEpoch) {
    // localtime_r does not look at TZ again by itself.
    ::tzset();
    std::time_t when = static_cast<std::time_t>(secondsSinceEpoch);
    std::tm local{};
    char text[64];
    if (::localtime_r(&when, &local) == nullptr ||
        ::strftime_l(text, sizeof text, "%d %b %Y %H:%M", &local, cLocale()) == 0)
        return {};
    return fromUTF8(text);
}

class OpenerShell final : public iShell {
public:
    bool openURL(LightweightString<wchar_t> const& url) override { return openWithShell(url); }
    bool openFile(LightweightString<wchar_t> const& path) override { return openWithShell(path); }
};

class LinuxOS final : public iOS {
public:
    iAllocator& allocator() override { return allocator_; }
    iRefCountTable& refCounts() override { return refCounts_; }
    bool isKeyDown(unsigned modifierMask) const override {
        return keyboard_.load(std::memory_order_acquire)->isKeyDown(modifierMask);
    }
    void setKeyboardState(iKeyboardState* state) override {
        keyboard_.store(state != nullptr ? state : &noKeys_, std::memory_order_release);
    }
    void setClipboardText(LightweightString<wchar_t> const& text) override {
        clipboard().setText(iClipboard::Clipboard, text);
    }
    LightweightString<wchar_t> getClipboardText() override {
        return clipboard().getText(iClipboard::Clipboard);
    }
    void setSelectionText(LightweightString<wchar_t> const& text) override {
        clipboard().setText(iClipboard::Selection, text);
    }
    LightweightString<wchar_t> getSelectionText() override {
        return clipboard().getText(iClipboard::Selection);
    }
    void setClipboard(iClipboard* clipboard) override {
        clipboard_.store(clipboard != nullptr ? clipboard : &processClipboard_,
                         std::memory_order_release);
    }

    LightweightString<wchar_t> getFixedPitchFontName() override { return fixedPitchFamily(); }
    bool openURL(LightweightString<wchar_t> const& url) override { return shell().openURL(url); }
    bool openFile(LightweightString<wchar_t> const& path) override {
        return shell().openFile(path);
    }
    void setShell(iShell* shell) override {
        shell_.store(shell != nullptr ? shell : &openerShell_, std::memory_order_release);
    }
    LightweightString<wchar_t> getHomeDirectory() override {
        return fromUTF8(Paths::homeDirectory().c_str());
    }
    LightweightString<wchar_t> getDefaultDirectory() override { return getHomeDirectory(); }
    LightweightString<wchar_t> formatFileTime(long long secondsSinceEpoch) override {
        return formatLocalTime(secondsSinceEpoch);
    }

private:
    MallocAllocator allocator_;
    AtomicRefCounts refCounts_;
    iClipboard& clipboard() { return *clipboard_.load(std::memory_order_acquire); }

    NoKeysHeld noKeys_;
    std::atomic<iKeyboardState*> keyboard_{&noKeys_};
    ProcessClipboard processClipboard_;
    std::atomic<iClipboard*> clipboard_{&processClipboard_};
    iShell& shell() { return *shell_.load(std::memory_order_acquire); }
    OpenerShell openerShell_;
    std::atomic<iShell*> shell_{&openerShell_};
};

} // namespace

iOS* OS() {
    // Never destroyed: reference counts are released by static destructors of any library.
    static LinuxOS* const os = new LinuxOS;
    return os;
}
