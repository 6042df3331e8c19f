#include "kit/FBOpenLinks.h"

#include "platform/uikit/UIApplication.h"

namespace prismo {

namespace {

struct Client {
    const char* probe;
    const char* profilePrefix;
};

constexpr Client clients[] = {
    {"tweetbot:", "tweetbot:///user_profile/"},
    {"twitterrific:", "twitterrific:///profile?screen_name="},
    {"tweetings:", "tweetings:///user?screen_name="},
    {"twitter:", "twitter://user?screen_name="},
};

constexpr const char* webPrefix = "http://twitter.com/";

} // namespace

bool FBOpenTwitterUsername(const std::string& username) {
    const auto& application = UIApplication::sharedApplication();
    for (const auto& client : clients)
        if (application->canOpenURL(client.probe))
            return application->openURL(client.profilePrefix + username);
    return application->openURL(webPrefix + username);
}

bool FBOpenMailAddress(const std::string& address) {
    return UIApplication::sharedApplication()->openURL("mailto:" + address);
}

} // namespace prismo
