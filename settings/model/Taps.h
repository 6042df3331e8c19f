#pragma once

#include <deque>
#include <functional>
#include <QObject>

namespace prismo::settings {

/// Queues the user's actions and runs them one at a time, never inside a QML signal handler: a page may run a
/// nested loop, and the tapped item may be gone when it ends. A tap that arrives meanwhile waits its turn.
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
