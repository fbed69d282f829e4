#include "qor/NotifyMsg.h"
#include "qor/WrappedData.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Payload : iObject {};

} // namespace

TEST(NotifyMsg, WideNamesBecomeUTF8AndAnAnonymousMessageHasAnEmptyName) {
    Qor::Ptr<iObject> data(new Payload);
    NotifyMsg wide(LightweightString<wchar_t>(L"gr\u00fc\u00dfe"), data);
    EXPECT_STREQ(wide, "gr\xc3\xbc\xc3\x9f"
                       "e");
    EXPECT_EQ(wide.getData(), data);

    NotifyMsg anonymous(data);
    ASSERT_NE(static_cast<char const*>(anonymous), nullptr);
    EXPECT_STREQ(anonymous, "");
}

TEST(NotifyMsg, CopiesShareNameAndDataButKeepTheirOwnFlags) {
    NotifyMsg copy(Qor::Ptr<iObject>{});
    {
        NotifyMsg original("x", Qor::Ptr<iObject>(new Payload));
        copy = original;
        copy.setFlags(4);
        EXPECT_EQ(original.getFlags(), 0);
        original = NotifyMsg("y", 1);
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
    files->getData().push_back("c.txt");
    EXPECT_EQ(Qor::dynamic_ptr_cast<WrappedData<Files>>(msg.getData())->getData(),
              (Files{"a.txt", "b.txt", "c.txt"}));
}
