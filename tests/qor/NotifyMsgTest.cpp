#include "qor/NotifyMsg.h"
#include "qor/WrappedData.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Payload : iObject {};

struct TabDetails {
    std::wstring name;
    unsigned short index = 0;
};

} // namespace

TEST(NotifyMsg, EachConstructorSetsNameDataAndFlags) {
    Qor::Ptr<iObject> data(new Payload);

    NotifyMsg named("open", data);
    EXPECT_STREQ(named, "open");
    EXPECT_EQ(named.getData(), data);
    EXPECT_EQ(named.getFlags(), 0);

    NotifyMsg flagged("pressed", 2);
    EXPECT_EQ(flagged.getName(), "pressed");
    EXPECT_FALSE(flagged.getData());
    EXPECT_EQ(flagged.getFlags(), 2);

    NotifyMsg wide(LightweightString<wchar_t>(L"gr\u00fc\u00dfe"), data);
    EXPECT_STREQ(wide, "gr\xc3\xbc\xc3\x9f"
                       "e");

    NotifyMsg anonymous(data);
    ASSERT_NE(static_cast<char const*>(anonymous), nullptr);
    EXPECT_STREQ(anonymous, "");
    EXPECT_EQ(anonymous.getData(), data);
}

TEST(NotifyMsg, CopiesShareNameAndDataButKeepTheirOwnFlags) {
    NotifyMsg copy(Qor::Ptr<iObject>{});
    {
        NotifyMsg original("x", Qor::Ptr<iObject>(new Payload));
        copy = original;
        copy.setFlags(4);
        EXPECT_EQ(original.getFlags(), 0);
        EXPECT_EQ(copy.getData(), original.getData());
        original = NotifyMsg("y", 1);
        EXPECT_STREQ(original, "y");
    }
    EXPECT_STREQ(copy, "x");
    EXPECT_EQ(copy.getFlags(), 4);
    EXPECT_EQ(copy.getData().useCount(), 1u);
}

TEST(WrappedData, RoundTripsThroughAMessageAndRejectsTheWrongType) {
    using Files = std::vector<std::string>;
    NotifyMsg msg("files", Qor::makePtr<WrappedData<Files>>(Files{"a.txt", "b.txt"}));

    EXPECT_TRUE(Qor::dynamic_ptr_cast<WrappedDataBase>(msg.getData()));
    EXPECT_FALSE(Qor::dynamic_ptr_cast<WrappedData<int>>(msg.getData()));
    auto files = Qor::dynamic_ptr_cast<WrappedData<Files>>(msg.getData());
    ASSERT_TRUE(files);
    EXPECT_EQ(files->getData(), (Files{"a.txt", "b.txt"}));
    files->getData().push_back("c.txt");
    EXPECT_EQ(Qor::dynamic_ptr_cast<WrappedData<Files>>(msg.getData())->getData().size(), 3u);

    NotifyMsg tab("page", Qor::makePtr<EventMsgData<TabDetails>>(TabDetails{L"Second", 1}));
    auto details = Qor::dynamic_ptr_cast<WrappedData<TabDetails>>(tab.getData());
    ASSERT_TRUE(details);
    EXPECT_EQ(details->getData().name, L"Second");
    EXPECT_EQ(details->getData().index, 1);
}
