#include "platform/local/desktop/GioDesktop.h"

#include "platform/local/descriptors/UniqueFd.h"
#include "platform/local/desktop/GObjectPointer.h"
#include "platform/local/desktop/IconFile.h"
#include "platform/text/Link.h"

#include <csignal>
#include <fcntl.h>
#include <gio/gdesktopappinfo.h>
#include <new>
#include <string_view>

namespace prismo {

namespace {

/// The application for links with this link's scheme, or null.
GObjectPointer<GAppInfo> linkHandler(const std::string& url) {
    const auto scheme = linkScheme(url);
    if (!scheme) return nullptr;
    GObjectPointer<GAppInfo> handler(g_app_info_get_default_for_uri_scheme(scheme->c_str()));
    // An application that takes only files would be started without the link.
    if (!handler || !G_IS_DESKTOP_APP_INFO(handler.get()) || !g_app_info_supports_uris(handler.get()))
        return nullptr;
    return handler;
}

/// Runs in the child, which may inherit the mask of a thread that blocks all signals.
void acceptSignals(gpointer /*unused*/) {
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

std::string text(const char* text) { return text ? text : ""; }

std::string withoutSuffix(std::string id) {
    constexpr std::string_view suffix = ".desktop";
    if (id.ends_with(suffix)) id.resize(id.size() - suffix.size());
    return id;
}

InstalledApplication application(GAppInfo* info) {
    InstalledApplication result;
    result.displayIdentifier = withoutSuffix(text(g_app_info_get_id(info)));
    result.displayName = text(g_app_info_get_display_name(info));
    const auto file = text(g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(info)));
    result.isSystem = !file.starts_with(text(g_get_user_data_dir()) + "/");
    if (auto* icon = g_app_info_get_icon(info)) result.iconPath = iconFile(icon);
    return result;
}

} // namespace

bool GioDesktop::canOpen(const std::string& url) { return linkHandler(url) != nullptr; }

bool GioDesktop::open(const std::string& url) {
    const auto handler = linkHandler(url);
    // The application outlives this process. With our output, it would keep a reader of that output waiting.
    const UniqueFd null(::open("/dev/null", O_RDWR | O_CLOEXEC));
    if (!handler || !null) return false;
    std::string argument = url;
    GList urls{argument.data(), nullptr, nullptr};
    // This always makes a new process, with or without a bus, and GLib waits for its end.
    return g_desktop_app_info_launch_uris_as_manager_with_fds(
               G_DESKTOP_APP_INFO(handler.get()), &urls, nullptr, G_SPAWN_SEARCH_PATH, acceptSignals, nullptr,
               nullptr, nullptr, null.get(), null.get(), null.get(), nullptr) != FALSE;
}

std::vector<InstalledApplication> GioDesktop::applications() {
    std::vector<InstalledApplication> result;
    auto* all = g_app_info_get_all();
    for (auto* entry = all; entry; entry = entry->next) {
        auto* info = G_APP_INFO(entry->data);
        if (!G_IS_DESKTOP_APP_INFO(info) || !g_app_info_should_show(info)) continue;
        if (auto found = application(info); !found.displayIdentifier.empty())
            result.push_back(std::move(found));
    }
    g_list_free_full(all, g_object_unref);
    return result;
}

} // namespace prismo

extern "C" __attribute__((visibility("default"))) prismo::DesktopServices* prismo2MakeDesktopServices() {
    return new (std::nothrow) prismo::GioDesktop;
}
