// Hook<Signature>: a function that a lower layer declares and calls, and a higher layer or a test implements.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace sumlet {

// Keeps a handler set as long as a copy of the guard exists. May outlive the hook.
using HookGuard = std::shared_ptr<const void>;

template <class Signature>
class Hook;

template <class Result, class... Arguments>
class Hook<Result(Arguments...)> {
 public:
  using Handler = std::function<Result(Arguments...)>;

  // `fallback` runs while no handler is set. Without it, calls do nothing and return a default Result.
  explicit Hook(Handler fallback = {}) : fallback_(std::move(fallback)) {}
  Hook(const Hook&) = delete;
  Hook& operator=(const Hook&) = delete;

  // Makes calls run `handler` until the last copy of the guard is destroyed. If several handlers are set, the one that
  // was set last runs.
  [[nodiscard]] HookGuard Set(Handler handler) {
    auto guard = std::make_shared<const Handler>(std::move(handler));
    std::erase_if(handlers_, [](const auto& earlier) { return earlier.expired(); });
    handlers_.push_back(guard);
    return guard;
  }

  // Returns the handler that a call would run now; empty if there is none.
  [[nodiscard]] Handler Current() const {
    for (auto latest = handlers_.rbegin(); latest != handlers_.rend(); ++latest)
      if (const auto handler = latest->lock()) return *handler;
    return fallback_;
  }

  // A handler may replace itself while it runs.
  Result operator()(Arguments... arguments) const {
    const Handler handler = Current();
    return handler ? handler(std::forward<Arguments>(arguments)...) : Result();
  }

 private:
  Handler fallback_;
  std::vector<std::weak_ptr<const Handler>> handlers_;  // in the order of Set; expired when their guards are gone
};

}  // namespace sumlet
