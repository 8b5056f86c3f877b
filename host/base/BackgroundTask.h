// Work on a thread of its own that may be left behind.

#ifndef HOST_BASE_BACKGROUNDTASK_H
#define HOST_BASE_BACKGROUNDTASK_H

#include <chrono>
#include <future>
#include <thread>
#include <utility>

// Runs work on a new thread. Dropping the object does not wait for the end of the work: what it
// answers is then dropped with it, so the work must own all that it uses.
template <typename Value>
class BackgroundTask {
 public:
  template <typename Work>
  explicit BackgroundTask(Work work) {
    std::packaged_task<Value()> task(std::move(work));
    result_ = task.get_future();
    std::thread(std::move(task)).detach();
  }

  bool HasEnded() const { return WaitFor(std::chrono::milliseconds(0)); }
  // Whether the work has ended within the time.
  bool WaitFor(std::chrono::milliseconds limit) const {
    return result_.wait_for(limit) == std::future_status::ready;
  }
  // The answer, or the exception that the work threw; once. Waits for it.
  Value Take() { return result_.get(); }

 private:
  std::future<Value> result_;
};

#endif
