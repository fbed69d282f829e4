#include "misc/DLList.h"

DLListRec::~DLListRec() {
    reset();
}

void DLListRec::reset() {
    if (list_ != nullptr)
        list_->remove(this);
}

DLList::~DLList() {
    clear();
}

void DLList::append(DLListRec* rec) {
    insertBefore(rec, nullptr);
}

void DLList::prepend(DLListRec* rec) {
    insertBefore(rec, head_);
}

void DLList::insertBefore(DLListRec* rec, DLListRec* before) {
    if (rec == nullptr || rec == before)
        return;
    rec->reset();
    if (before != nullptr && before->list_ != this)
        before = nullptr;
    link(rec, before);
}

bool DLList::remove(DLListRec* rec) {
    if (rec == nullptr || rec->list_ != this)
        return false;
    unlink(rec);
    return true;
}

DLListRec* DLList::find(DLListRec const& like) const {
    for (DLListRec* r = head_; r != nullptr; r = r->next_)
        if (*r == like)
            return r;
    return nullptr;
}

void DLList::clear() {
    while (DLListRec* rec = head_) {
        unlink(rec);
        if (owns_)
            delete rec;
    }
}

void DLList::apply(void (*fn)(DLListRec*, void*), void* arg) {
    Cursor cursor{head_, cursors_};
    cursors_ = &cursor;
    while (DLListRec* rec = cursor.next) {
        cursor.next = rec->next_;
        fn(rec, arg);
    }
    cursors_ = cursor.outer;
}

void DLList::link(DLListRec* rec, DLListRec* before) {
    rec->list_ = this;
    rec->next_ = before;
    rec->prev_ = before != nullptr ? before->prev_ : tail_;
    (rec->prev_ != nullptr ? rec->prev_->next_ : head_) = rec;
    (before != nullptr ? before->prev_ : tail_) = rec;
    ++size_;
}

void DLList::unlink(DLListRec* rec) {
    for (Cursor* c = cursors_; c != nullptr; c = c->outer)
        if (c->next == rec)
            c->next = rec->next_;
    (rec->prev_ != nullptr ? rec->prev_->next_ : head_) = rec->next_;
    (rec->next_ != nullptr ? rec->next_->prev_ : tail_) = rec->prev_;
    rec->list_ = nullptr;
    rec->next_ = rec->prev_ = nullptr;
    --size_;
}
