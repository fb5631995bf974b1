// platform: work that is done when a scope is left, and at the latest when the program ends.
#include "screen/cleanup.h"

#include <cstdlib>
#include <utility>

namespace kq {

namespace {

constinit Cleanup* newest = nullptr; // those that stand, a stack

} // namespace

Cleanup::Cleanup(std::function<void()> work)
    : work_(std::move(work))
    , older_(newest)
{
    [[maybe_unused]] static const int registered = std::atexit(clean_up_all);
    newest = this;
}

Cleanup::~Cleanup()
{
    newest = older_;
    work_();
}

void Cleanup::clean_up_all()
{
    while (Cleanup* const last = newest) {
        newest = last->older_;
        last->work_();
    }
}

} // namespace kq
