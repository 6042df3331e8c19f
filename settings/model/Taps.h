#pragma once

#include <deque>
#include <functional>
#include <QObject>

namespace prismo::settings {

/// What a person does in the window, one after the other and never inside the handler of a QML signal: a page
/// may run a nested loop when it is told, and the item that was tapped may be gone when that ends. A tap that
/// comes meanwhile waits its turn.
class Taps : public QObject {
  public:
    /// `from` is for the trace: the function that the tap came from, in static storage.
    void add(const char* from, std::function<void()> act);
    bool isIdle() const { return taps_.empty() && !isPlaying_; }

  private:
    void playNext();

    struct Tap {
        const char* from;
        std::function<void()> act;
    };
    std::deque<Tap> taps_;
    bool isPlaying_ = false;
};

} // namespace prismo::settings
