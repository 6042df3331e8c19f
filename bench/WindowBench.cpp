// window-bench WHAT ROOT [SINCE]: measures the window and prints one number per line.
//
// start ROOT SINCE: milliseconds from SINCE to the first frame, then the process's memory in megabytes with
// the page open. SINCE is a time of the steady clock, in nanoseconds.
//
// tap ROOT: milliseconds from a tap on the page's first switch to the frame that shows it, ten times.
//
// scroll ROOT: milliseconds per frame while the application picker scrolls from end to end.
//
// supervised ROOT: runs a window under its supervisor until the supervisor is ended. Each time the window
// comes up, prints its process ID and the time of its first frame, on the same clock as SINCE.

#include "settings/model/pages/Page.h"
#include "settings/model/Phone.h"
#include "settings/options/Options.h"
#include "settings/supervisor/Supervisor.h"
#include "settings/window/Session.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace {

using namespace prismo::settings;
using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void runUntil(const std::function<bool()>& condition) {
    const auto start = Clock::now();
    while (!condition()) {
        if (millisecondsSince(start) > 10000) throw std::runtime_error("timed out waiting for the window");
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }
}

class Bench {
  public:
    explicit Bench(const std::string& root) : session_({root, "light", -1, ""}) {
        phone_ = window_ ? window_->property("phone").value<Phone*>() : nullptr;
        if (!phone_) throw std::runtime_error("no device at " + root);
        QObject::connect(window_, &QQuickWindow::frameSwapped, window_, [this] { ++frames_; });
        runUntil([this] { return frames_ > 0; });
    }

    Table& table() { return *qobject_cast<Page*>(phone_->pages()->top())->table(); }

    /// The first row of this kind on the top page. Waits until the page has one.
    int row(RowKind::Kind kind) {
        int found = -1;
        runUntil([&] {
            for (int row = 0; row < table().rowCount() && found < 0; ++row)
                if (value(row, "kind") == kind) found = row;
            return found >= 0;
        });
        return found;
    }

    QVariant value(int row, const QByteArray& role) {
        return table().data(table().index(row), table().roleNames().key(role));
    }

    void open() {
        table().tap(row(RowKind::Link));
        row(RowKind::Switch);
        settle();
    }

    /// Waits until no new frame has been drawn for 150 milliseconds.
    void settle() {
        for (int seen = -1; seen != frames_;) {
            seen = frames_;
            const auto start = Clock::now();
            runUntil([&] { return millisecondsSince(start) > 150; });
        }
    }

    double tap() {
        const int at = row(RowKind::Switch);
        const auto before = value(at, "isChecked");
        const auto start = Clock::now();
        table().tap(at);
        runUntil([&] { return value(at, "isChecked") != before; });
        runUntil([this, seen = frames_] { return frames_ > seen; });
        return millisecondsSince(start);
    }

    void openApplications() {
        open();
        table().choose(row(RowKind::Segment), 1);
        runUntil([this] { return value(row(RowKind::Link), "title").toString().contains("Selected"); });
        table().tap(row(RowKind::Link));
        row(RowKind::Application);
        settle();
    }

    void scroll() {
        auto* list = find(*window_->contentItem());
        if (!list) throw std::runtime_error("no list");
        const double end = list->property("contentHeight").toDouble() - list->height();
        constexpr double step = 90; // pixels per frame: a strong flick at 60 frames per second
        for (double at = step; at < end; at += step) {
            const auto start = Clock::now();
            list->setProperty("contentY", at);
            runUntil([this, seen = frames_] { return frames_ > seen; });
            std::printf("%.2f\n", millisecondsSince(start));
        }
    }

  private:
    /// The list that shows the top page's table.
    QQuickItem* find(const QQuickItem& below) {
        for (auto* item : below.childItems()) {
            if (item->objectName() == "table" && item->property("count").toInt() == table().rowCount())
                return item;
            if (auto* found = find(*item)) return found;
        }
        return nullptr;
    }

    Session session_;
    QQuickWindow* window_ = qobject_cast<QQuickWindow*>(session_.window());
    Phone* phone_ = nullptr;
    int frames_ = 0;
};

double memoryInMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmRSS:") {
            double kilobytes = 0;
            status >> kilobytes;
            return kilobytes / 1024;
        }
    return -1;
}

void run(const std::string& what, const std::string& root, const std::string& since) {
    Bench bench(root);
    if (what == "start") {
        std::printf("%.2f\n",
                    millisecondsSince(Clock::time_point(std::chrono::nanoseconds(std::stoll(since)))));
        bench.open();
        std::printf("%.1f\n", memoryInMegabytes());
    } else if (what == "tap") {
        bench.open();
        for (int i = 0; i < 10; ++i) {
            std::printf("%.2f\n", bench.tap());
            bench.settle();
        }
    } else if (what == "supervisedWindow") {
        std::printf("%d\n%lld\n", static_cast<int>(::getpid()),
                    static_cast<long long>(Clock::now().time_since_epoch() / std::chrono::nanoseconds(1)));
        std::fflush(stdout);
        QGuiApplication::exec();
    } else if (what == "scroll") {
        bench.openApplications();
        bench.scroll();
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    if (argv[1] == std::string("supervised"))
        return Supervisor({"/proc/self/exe", {"supervisedWindow", argv[2]}}).run();
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    int noArguments = 1;
    const QGuiApplication application(noArguments, argv);
    try {
        run(argv[1], argv[2], argc > 3 ? argv[3] : "0");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "window-bench: %s\n", error.what());
        return 1;
    }
    return 0;
}
