#pragma once

// An intrusive doubly linked list. A record derives from DLListRec and is in at most one list at a
// time. A list that owns its records deletes them with itself; one that doesn't only unlinks them.
// apply() visits the records in order and survives the removal (or deletion) of the record it is
// visiting, and of any other record, by the visitor.

class DLList;

class DLListRec {
public:
    DLListRec() = default;
    DLListRec(DLListRec const&) : DLListRec() {}
    DLListRec& operator=(DLListRec const&) { return *this; }
    // Leaves its list first, so deleting a record that is still listed is safe.
    virtual ~DLListRec();

    virtual bool operator==(DLListRec const& other) const { return this == &other; }

    // Unlinks the record from its list, if it is in one.
    void reset();
    DLList* list() const { return list_; }
    DLListRec* next() const { return next_; }
    DLListRec* prev() const { return prev_; }

private:
    friend class DLList;
    DLList* list_ = nullptr;
    DLListRec* next_ = nullptr;
    DLListRec* prev_ = nullptr;
};

class DLList {
public:
    explicit DLList(bool ownsRecords = false) : owns_(ownsRecords) {}
    DLList(DLList const&) = delete;
    DLList& operator=(DLList const&) = delete;
    ~DLList();

    void ownsRecords(bool owns) { owns_ = owns; }
    bool ownsRecords() const { return owns_; }
    unsigned size() const { return size_; }
    bool isEmpty() const { return size_ == 0; }
    DLListRec* first() const { return head_; }
    DLListRec* last() const { return tail_; }

    // A record that is in another list leaves it first.
    void append(DLListRec* rec);
    void prepend(DLListRec* rec);
    void insertBefore(DLListRec* rec, DLListRec* before);
    // Unlinks the record (never deletes it); false when it is not in this list.
    bool remove(DLListRec* rec);
    // The first record that compares equal to `like`, or null.
    DLListRec* find(DLListRec const& like) const;
    // Unlinks every record, deleting them when the list owns them.
    void clear();

    void apply(void (*fn)(DLListRec*, void*), void* arg);

private:
    void link(DLListRec* rec, DLListRec* before);
    void unlink(DLListRec* rec);

    DLListRec* head_ = nullptr;
    DLListRec* tail_ = nullptr;
    unsigned size_ = 0;
    bool owns_;
    // Where each running apply() stands (they may nest): removing the record a cursor points at
    // moves that cursor on.
    struct Cursor {
        DLListRec* next;
        Cursor* outer;
    };
    Cursor* cursors_ = nullptr;
};
