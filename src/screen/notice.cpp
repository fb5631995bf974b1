// screen: a message that asks for no key.
#include "screen/notice.h"

#include "raster/grx.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <algorithm>
#include <utility>

namespace kq {

namespace {

std::string notice;

} // namespace

void leave_notice(std::string text)
{
    notice = std::move(text);
}

int read_key_with_notice()
{
    if (notice.empty()) return GrKeyRead();
    const ScreenCopy covered;
    auto rows = wrap_text(std::exchange(notice, {}), _nb_col - 1);
    rows.resize(std::min(rows.size(), static_cast<std::size_t>(_nb_line / 2)));
    _setbgcolor(color::black);
    _settextwindow(1, 1, _nb_line, _nb_col);
    for (int line = _nb_line - static_cast<int>(rows.size()) + 1; const std::string& row : rows)
        outtext_at(line++, 1, color::yellow, padded(' ' + row, _nb_col));
    const int pressed = GrKeyRead();
    covered.put_back();
    return pressed;
}

} // namespace kq
