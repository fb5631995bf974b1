// platform: work that is done when a scope is left, and at the latest when the program ends.
#pragma once

#include <functional>

namespace kq {

// Does its work once: when it is destroyed or, where the program ends below it (a fatal error, a signal, a
// lost window), as the program ends, the newest first.
class Cleanup {
public:
    explicit Cleanup(std::function<void()> work); // which does not throw
    ~Cleanup();
    Cleanup(const Cleanup&) = delete;
    Cleanup& operator=(const Cleanup&) = delete;

private:
    static void clean_up_all();
    void finish();
    std::function<void()> work_;
    Cleanup* older_;
};

} // namespace kq
