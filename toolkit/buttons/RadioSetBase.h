#pragma once

// The bookkeeping of a radio set of buttons or check boxes: up to 1024 members, entered in order,
// each known by its index, and the index of the one that is on (-1 for none). A member that dies
// while entered is passed over from then on.

#include "glob/Glob.h"
#include "os/Diagnostics.h"

#include <array>

class Button;
class Checkbox;

// How a set switches a member. A button is put up or down; a check box is toggled, whatever the
// state asked for, so a box that is already in the wanted state flips the wrong way.
void switchRadioMember(Button* member, bool on, bool notify);
void switchRadioMember(Checkbox* member, bool on, bool notify);

template <class T>
class RadioSetBase {
public:
    static constexpr unsigned short maxEntries = 1024;

    RadioSetBase() = default;
    RadioSetBase(RadioSetBase const&) = delete;
    RadioSetBase& operator=(RadioSetBase const&) = delete;
    virtual ~RadioSetBase() = default;

    // Switches the current member off and the member at `index` on. Nothing happens for the
    // current index or an index not below the count; a negative index leaves none on.
    virtual void set_current(int index, bool notify) {
        if (index == current_ || index >= int(count_))
            return;
        if (T* old = getItem(current_))
            switchRadioMember(old, false, notify);
        current_ = index;
        if (T* now = getItem(index))
            switchRadioMember(now, true, notify);
    }

    // Enters a member and answers its index; a full set reports the attempt and answers -1.
    int addItem(T* member) {
        if (count_ >= maxEntries) {
            diag_printf("RadioSetBase:: attempt to exceed max no of radio buttons");
            return -1;
        }
        entries_[count_] = Entry{member, member->getIdStamp()};
        return count_++;
    }
    // Forgets a member; its index stays taken. Forgetting the current one leaves none on.
    void removeItem(T const* member) {
        for (unsigned short i = 0; i < count_; ++i)
            if (entries_[i].member == member) {
                entries_[i] = Entry{};
                if (current_ == i)
                    current_ = -1;
            }
    }
    // Forgets every member.
    void clearItems() {
        entries_.fill(Entry{});
        count_ = 0;
        current_ = -1;
    }

    // The live member at the index, or null.
    T* getItem(int index) const {
        if (index < 0 || index >= int(count_))
            return nullptr;
        Entry const& e = entries_[unsigned(index)];
        return e.member != nullptr && EventHandler::valid(e.member, e.stamp) ? e.member : nullptr;
    }
    unsigned short getCount() const { return count_; }
    int getCurrent() const { return current_; }

protected:
    // Sets the index without switching anything.
    void setCurrentIndex(int index) { current_ = index; }

private:
    struct Entry {
        T* member = nullptr;
        IdStamp stamp = IdStamp::null();
    };

    std::array<Entry, maxEntries> entries_{};
    unsigned short count_ = 0;
    int current_ = -1;
};
