#include "platform/social/SLComposeViewController.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct SLComposeViewControllerTest : MemoryWorld {
    SLComposeViewControllerTest() {
        device.setLinkSchemes({"https"});
        UIApplication::sharedApplication()->present(sheet);
    }
    std::string sent(const std::string& text) {
        sheet->setText(text);
        sheet->send();
        return links().back();
    }
    static std::string post(const std::string& text) {
        return "openURL https://twitter.com/intent/tweet?text=" + text + " yes";
    }

    std::shared_ptr<SLComposeViewController> sheet =
        SLComposeViewController::composeViewControllerForServiceType(SLServiceTypeTwitter);
};

TEST_F(SLComposeViewControllerTest, IsAnEmptySheetForItsService) {
    EXPECT_EQ(sheet->serviceType(), SLServiceType::twitter);
    EXPECT_EQ(sheet->serviceName(), "Twitter");
    EXPECT_EQ(sheet->text(), "");
}

TEST_F(SLComposeViewControllerTest, TextIsTheInitialTextUntilEdited) {
    int changes = 0;
    const auto subscription = sheet->observe([&] { ++changes; });
    sheet->setInitialText("Hello");
    EXPECT_EQ(sheet->text(), "Hello");
    sheet->setText("Hello there");
    EXPECT_EQ(sheet->text(), "Hello there");
    EXPECT_EQ(changes, 2);
}

TEST_F(SLComposeViewControllerTest, SendingOpensTheServicesPageAndDismissesTheSheet) {
    EXPECT_EQ(sent("Hello"), post("Hello"));
    EXPECT_EQ(links().size(), 1U);
    EXPECT_TRUE(UIApplication::sharedApplication()->presented().empty());
}

TEST_F(SLComposeViewControllerTest, DismissingOpensNothing) {
    sheet->setText("Hello");
    sheet->dismiss();
    EXPECT_TRUE(effects.empty());
    EXPECT_TRUE(UIApplication::sharedApplication()->presented().empty());
}

TEST_F(SLComposeViewControllerTest, UnreservedCharactersStayUnescaped) {
    const std::string text = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    EXPECT_EQ(sent(text), post(text));
}

TEST_F(SLComposeViewControllerTest, ReservedCharactersAreEscaped) {
    EXPECT_EQ(sent("#a @b&c=d?e/f:g+h%i"), post("%23a%20%40b%26c%3Dd%3Fe%2Ff%3Ag%2Bh%25i"));
    EXPECT_EQ(sent(";,$!'()*[]\"<>\\^`{|}"),
              post("%3B%2C%24%21%27%28%29%2A%5B%5D%22%3C%3E%5C%5E%60%7B%7C%7D"));
}

TEST_F(SLComposeViewControllerTest, ControlCharactersAreEscaped) {
    EXPECT_EQ(sent(std::string("\0\n\x7F", 3)), post("%00%0A%7F"));
}

TEST_F(SLComposeViewControllerTest, EveryByteOfUTF8IsEscaped) {
    EXPECT_EQ(sent("\xC3\xBC\xE2\x80\x93\xF0\x9F\x8E\xA8"), post("%C3%BC%E2%80%93%F0%9F%8E%A8"));
}

TEST_F(SLComposeViewControllerTest, EmptyPostHasAnEmptyText) { EXPECT_EQ(sent(""), post("")); }

} // namespace
} // namespace prismo
