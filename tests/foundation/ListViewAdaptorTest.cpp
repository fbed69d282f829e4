#include "foundation/ListViewAdaptorBase.h"
#include "foundation/ListViewWidget.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

// Records what its adaptor tells it.
class RecordingListView : public ListViewWidget {
public:
    void setCurrentItem(unsigned int index) override {
        log.push_back("current " + std::to_string(index));
    }
    void addItemText(unsigned int index) override { log.push_back("add " + std::to_string(index)); }
    void removeItemText(unsigned int index) override {
        log.push_back("remove " + std::to_string(index));
    }
    void itemChanged(unsigned int index) override {
        log.push_back("change " + std::to_string(index));
    }

    std::vector<std::string> log;
};

class NamesAdaptor : public ListViewAdaptorBase {
public:
    unsigned int getSize() const override { return (unsigned int)names.size(); }
    LightweightString<wchar_t> getItemText(unsigned int index) const override {
        return names.at(index);
    }

    std::vector<LightweightString<wchar_t>> names{L"one", L"two", L"three"};
};

struct ListBinding : ::testing::Test {
    ValServer<unsigned int> selection{0};
    ListServer list;
    Qor::Ptr<NamesAdaptor> adaptor = Qor::makePtr<NamesAdaptor>();
    RecordingListView view;

    void SetUp() override {
        adaptor->registerWith(&selection);
        adaptor->connectToListServer(&list);
        view.setDataAdaptor(adaptor);
    }
};

} // namespace

TEST_F(ListBinding, TheViewReadsItemsAndSelectsThroughTheServerForEveryView) {
    RecordingListView other;
    other.setDataAdaptor(adaptor);
    EXPECT_EQ(view[1], LightweightString<wchar_t>(L"two"));
    EXPECT_EQ(view.requestItemSelect(2), 1);
    EXPECT_EQ(selection.getValue(), 2u);
    EXPECT_EQ(view.log, (std::vector<std::string>{"current 2"}));
    EXPECT_EQ(other.log, (std::vector<std::string>{"current 2"}));

    adaptor->registerWith(nullptr);
    EXPECT_EQ(view.requestItemSelect(1), 0);
    EXPECT_EQ(view.log.size(), 1u);
}

TEST_F(ListBinding, ListChangesReachTheViews) {
    list.notifyItemAdded(3);
    list.notifyItemUpdated(0);
    list.notifyItemDeleted(1);
    EXPECT_EQ(view.log, (std::vector<std::string>{"add 3", "change 0", "remove 1"}));
}

TEST_F(ListBinding, EitherEndOfAListLinkMayGoFirst) {
    {
        NamesAdaptor transient;
        transient.connectToListServer(&list);
    }
    EXPECT_EQ(list.clientCount(), 1u);
    auto early = std::make_unique<ListServer>();
    adaptor->connectToListServer(early.get());
    EXPECT_EQ(list.clientCount(), 0u);
    early.reset();
    EXPECT_EQ(adaptor->getListServer(), nullptr);
}

TEST(ListViewWidget, WithoutAnAdaptorItIsEmptyAndASelectionAnswersOne) {
    RecordingListView view;
    EXPECT_EQ(view.getSize(), 0u);
    EXPECT_EQ(view.requestItemSelect(4), 1);
}
