// platform: work that is done when a scope is left, and at the latest when the program ends.
#include "screen/cleanup.h"

#include <cstdlib>
#include <utility>

namespace kq {

namespace {

constinit Cleanup* newest = nullptr; // of those whose work is not done

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
    finish();
}

void Cleanup::finish()
{
    for (Cleanup** at = &newest; *at; at = &(*at)->older_)
        if (*at == this) {
            *at = older_;
            return work_();
        }
}

void Cleanup::clean_up_all()
{
    while (newest)
        newest->finish();
}

} // namespace kq
