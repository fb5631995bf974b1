// screen: species identifiers as the editor shows them.
#pragma once

#include <string>
#include <string_view>

namespace kq {

// The identifier in the form of opt_identificateur: 0 "%-28s" whole; 1 "%c. %-25s" initial and the text after
// the first blank; 2 "%-28s" the text before the first blank and the "@" part.
std::string display_name(std::string_view identifier, int form);
// Writes it at the cursor cell in the colour of its group (on the highlight background for a new species),
// cut at `width`. A suffix takes the place of the last characters of the width.
void outtext_ident(int species, int width, std::string_view suffix = {});
// Asks for the form of identifiers: 2 when one was chosen, 1 on ESCAPE.
int choice_ident();

} // namespace kq
