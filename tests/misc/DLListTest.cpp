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

std::vector<int> values(DLList& list) {
    std::vector<int> out;
    list.apply(
        [](DLListRec* r, void* arg) {
            static_cast<std::vector<int>*>(arg)->push_back(static_cast<Rec*>(r)->value);
        },
        &out);
    return out;
}

} // namespace

TEST(DLList, ApplyVisitsRecordsInOrder) {
    DLList list;
    Rec a(1), b(2), c(3);
    list.append(&b);
    list.append(&c);
    list.prepend(&a);
    EXPECT_EQ(values(list), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(list.size(), 3u);
    list.remove(&b);
    EXPECT_EQ(values(list), (std::vector<int>{1, 3}));
    list.insertBefore(&b, &c);
    EXPECT_EQ(values(list), (std::vector<int>{1, 2, 3}));
}

TEST(DLList, OwningListDeletesItsRecordsAndOtherListsOnlyUnlink) {
    int deaths = 0;
    Rec kept(9, &deaths);
    {
        DLList owning(true);
        owning.append(new Rec(1, &deaths));
        owning.append(new Rec(2, &deaths));
    }
    EXPECT_EQ(deaths, 2);
    {
        DLList borrowing;
        borrowing.append(&kept);
    }
    EXPECT_EQ(deaths, 2);
    EXPECT_EQ(kept.list(), nullptr);
}

TEST(DLList, RecordsLeaveTheirListWhenResetMovedOrDeleted) {
    DLList one, two;
    Rec a(1);
    auto* b = new Rec(2);
    one.append(&a);
    one.append(b);
    two.append(&a);
    EXPECT_EQ(one.size(), 1u);
    EXPECT_EQ(a.list(), &two);
    delete b;
    EXPECT_TRUE(one.isEmpty());
    a.reset();
    EXPECT_TRUE(two.isEmpty());
    EXPECT_FALSE(two.remove(&a));
}

TEST(DLList, ApplySurvivesRemovalOfTheCurrentAndTheNextRecord) {
    int deaths = 0;
    DLList list(true);
    for (int v = 1; v <= 6; ++v)
        list.append(new Rec(v, &deaths));
    struct Visit {
        DLList* list;
        std::vector<int> seen;
    } visit{&list, {}};
    // Visiting 2 deletes 2 itself and 3, the record the walk would go to next.
    list.apply(
        [](DLListRec* r, void* arg) {
            auto* v = static_cast<Visit*>(arg);
            auto* rec = static_cast<Rec*>(r);
            v->seen.push_back(rec->value);
            if (rec->value == 2) {
                delete rec->next();
                delete rec;
            }
        },
        &visit);
    EXPECT_EQ(visit.seen, (std::vector<int>{1, 2, 4, 5, 6}));
    EXPECT_EQ(deaths, 2);
    EXPECT_EQ(values(list), (std::vector<int>{1, 4, 5, 6}));
}

TEST(DLList, NestedApplyKeepsTheOuterWalkOnTrack) {
    DLList list(true);
    for (int v = 1; v <= 4; ++v)
        list.append(new Rec(v));
    struct Visit {
        DLList* list;
        std::vector<int> seen;
    } visit{&list, {}};
    // While visiting 1, an inner walk deletes 2: the outer walk must go on at 3.
    list.apply(
        [](DLListRec* r, void* arg) {
            auto* v = static_cast<Visit*>(arg);
            v->seen.push_back(static_cast<Rec*>(r)->value);
            if (static_cast<Rec*>(r)->value == 1)
                v->list->apply(
                    [](DLListRec* inner, void*) {
                        if (static_cast<Rec*>(inner)->value == 2)
                            delete inner;
                    },
                    nullptr);
        },
        &visit);
    EXPECT_EQ(visit.seen, (std::vector<int>{1, 3, 4}));
}

TEST(DLList, FindUsesTheRecordsEquality) {
    DLList list(true);
    list.append(new Rec(5));
    list.append(new Rec(8));
    Rec probe(8);
    ASSERT_NE(list.find(probe), nullptr);
    EXPECT_EQ(static_cast<Rec*>(list.find(probe))->value, 8);
    EXPECT_EQ(list.find(Rec(3)), nullptr);
}
