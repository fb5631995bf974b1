// screen: the exit confirmation.
#pragma once

namespace kq {

// Asks "Do you really want to exit from this program?" at line `row`; yes ends the program with status 0, any
// other answer clears the text window and returns.
void confirme_fin_prog(int row);

} // namespace kq
