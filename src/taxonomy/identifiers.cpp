// screen: species identifiers as the editor shows them.
#include "taxonomy/identifiers.h"

#include "core/options.h"
#include "core/store.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/group_colours.h"

#include <algorithm>

namespace kq {

std::string display_name(std::string_view name, int form)
{
    const std::size_t blank = name.find(' ');
    if (form == 0 || blank == std::string_view::npos) return text_format("%-28s", std::string(name).c_str());
    if (form == 1) return text_format("%c. %-25s", name.front(), std::string(name.substr(blank + 1)).c_str());
    const std::size_t at = name.find('@');
    std::string genus(name.substr(0, std::min(blank, at)));
    if (at != std::string_view::npos) genus += name.substr(at);
    return text_format("%-28s", genus.c_str());
}

void outtext_ident(int species, int width)
{
    const auto s = static_cast<std::size_t>(species);
    select_color_groupe(no_groupe[s]);
    select_bk_color_groupe(no_groupe[s], new_est[s] != 0);
    const std::string name = display_name(identifier(species), opt_identificateur);
    _outtext(std::string_view(name).substr(0, static_cast<std::size_t>(std::max(width, 0))));
    _setbgcolor(color::black);
}

} // namespace kq
