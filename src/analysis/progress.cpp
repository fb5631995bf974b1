// screen: what a long computation shows while it runs, and ESCAPE, which stops it.
#include "analysis/progress.h"

#include "raster/grx.h"
#include "screen/dialogs.h"
#include "screen/strings.h"

#include <algorithm>
#include <utility>

namespace kq {

namespace {

constexpr int figure_column = 3;
// From so many pairs on a percentage has a decimal.
constexpr std::int64_t many_pairs = 100000;

constexpr int file_line = 8;
constexpr auto unnoticed = std::chrono::milliseconds(200); // for so long nobody misses a box

std::function<bool()> escape_pressed;

} // namespace

bool go_on()
{
    return !(escape_pressed ? escape_pressed() : GrEscapePressed());
}

void set_escape(std::function<bool()> pressed)
{
    escape_pressed = std::move(pressed);
}

DistanceProgress::DistanceProgress(std::int64_t pairs)
    : pairs_(pairs)
{
    _setbgcolor(color::black);
    window_hp(12, 10, 14, 70, color::light_green);
    outtext_inside(
        2, pairs < many_pairs ? 5 : 7, color::light_cyan,
        text_format("%c of the %lld distances have been calculated", '%', static_cast<long long>(pairs)));
    present_screen();
}

DistanceProgress::~DistanceProgress()
{
    covered_.put_back();
}

bool DistanceProgress::show(std::int64_t done)
{
    const std::int64_t permille = pairs_ == 0 ? 0 : done * 1000 / pairs_;
    if (permille > permille_) {
        permille_ = permille;
        const bool decimal = pairs_ >= many_pairs;
        const auto whole = static_cast<int>(permille / 10), tenth = static_cast<int>(permille % 10);
        outtext_inside(2, figure_column, color::black, decimal ? "****" : "**");
        outtext_inside(2, figure_column, color::yellow,
                       decimal ? text_format("%2d.%1d", whole, tenth) : text_format("%2d", whole));
    }
    return go_on();
}

FileProgress::FileProgress(std::string name)
    : name_(std::move(name))
    , due_(std::chrono::steady_clock::now() + unnoticed)
{
}

bool FileProgress::show()
{
    if (!covered_ && std::chrono::steady_clock::now() >= due_) {
        covered_.emplace();
        const std::string message = "WRITING " + name_;
        const int width = static_cast<int>(message.size()) + 3, left = std::max(1, (_nb_col - width) / 2);
        affich_progress(message, file_line, left, left + width, color::yellow);
    }
    return go_on();
}

void FileProgress::close()
{
    if (covered_) covered_->put_back();
    covered_.reset();
}

} // namespace kq
