// screen: species identifiers as the editor shows them.
#include "taxonomy/identifiers.h"

#include "core/options.h"
#include "core/store.h"
#include "screen/dialogs.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/group_colours.h"

#include <algorithm>
#include <array>

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

void outtext_ident(int species, int width, std::string_view suffix)
{
    const auto s = static_cast<std::size_t>(species);
    select_color_groupe(no_groupe[s]);
    select_bk_color_groupe(no_groupe[s], new_est[s] != 0);
    const int name_width = std::max(width - static_cast<int>(suffix.size()), 0);
    const auto text = padded(display_name(identifier(species), opt_identificateur), name_width);
    _outtext((text + std::string(suffix)).substr(0, static_cast<std::size_t>(std::max(width, 0))));
    _setbgcolor(color::black);
}

int choice_ident()
{
    constexpr int line = 14, entry_width = 14, chosen = 2, unchanged = 1;
    static constexpr std::array<std::string_view, 3> forms = {"Genus species", "G. species", "Genus"};
    const int form = _choice_option(line, opt_identificateur, forms, entry_width);
    if (form == escaped) return unchanged;
    opt_identificateur = form;
    return chosen;
}

} // namespace kq
