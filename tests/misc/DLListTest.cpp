#include "misc/DLList.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Rec : DLListRec {
    explicit Rec(int v, int* deaths = nullptr) : value(v), deaths_(deaths) {}
    ~Rec() override {
        if (deaths_)
            ++*deaths_;
    }
    bool operator==(DLListRec const& o) const override {
        auto const* r = dynamic_cast<Rec const*>(&o);
        return r != nullptr && r->value == value;
    }
    int value;
    int* deaths_;
};

// What a visitor saw, and the list it walks.
struct Visit {
    DLList* list;
    std::vector<int> seen;
};

void collect(DLListRec* r, void* seen) {
    static_cast<std::vector<int>*>(seen)->push_back(static_cast<Rec*>(r)->value);
}

std::vector<int> values(DLList& list) {
    std::vector<int> seen;
    list.apply(collect, &seen);
    return seen;
}

} // namespace

TEST(DLList, EditsKeepOrderAndFindUsesTheRecordsEquality) {
    DLList list;
    Rec a(1), b(2), c(3);
    list.append(&b);
    list.append(&c);
    list.prepend(&a);
    list.remove(&b);
    EXPECT_EQ(values(list), (std::vector<int>{1, 3}));
    list.insertBefore(&b, &c);
    EXPECT_EQ(values(list), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(list.size(), 3u);
    EXPECT_EQ(list.find(Rec(2)), &b);
    EXPECT_EQ(list.find(Rec(7)), nullptr);
}

TEST(DLList, OnlyAnOwningListDeletesAndRecordsLeaveTheirListWhenMovedResetOrDeleted) {
    int deaths = 0;
    DLList one, two;
    Rec a(1, &deaths);
    {
        DLList owning(true), borrowing;
        owning.append(new Rec(2, &deaths));
        borrowing.append(&a);
    }
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(a.list(), nullptr);
    auto* b = new Rec(2);
    one.append(&a);
    one.append(b);
    two.append(&a);
    EXPECT_EQ(a.list(), &two);
    delete b;
    EXPECT_TRUE(one.isEmpty());
    a.reset();
    EXPECT_TRUE(two.isEmpty());
    EXPECT_FALSE(two.remove(&a));
}

// Visiting 2 deletes 2 itself and 3, the record the walk would go to next; visiting 4 starts an
// inner walk that deletes 5. The outer walk must go on at the right record each time.
TEST(DLList, ApplySurvivesRemovalOfTheCurrentAndTheNextRecordAlsoByANestedWalk) {
    int deaths = 0;
    DLList list(true);
    for (int v = 1; v <= 6; ++v)
        list.append(new Rec(v, &deaths));
    Visit visit{&list, {}};
    list.apply(
        [](DLListRec* r, void* arg) {
            auto* rec = static_cast<Rec*>(r);
            auto* visit = static_cast<Visit*>(arg);
            visit->seen.push_back(rec->value);
            if (rec->value == 2) {
                delete rec->next();
                delete rec;
            } else if (rec->value == 4) {
                visit->list->apply(
                    [](DLListRec* inner, void*) {
                        if (static_cast<Rec*>(inner)->value == 5)
                            delete inner;
                    },
                    nullptr);
            }
        },
        &visit);
    EXPECT_EQ(visit.seen, (std::vector<int>{1, 2, 4, 6}));
    EXPECT_EQ(deaths, 3);
    EXPECT_EQ(values(list), (std::vector<int>{1, 4, 6}));
}
