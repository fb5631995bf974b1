// screen: the exit confirmation.
#include "core/shutdown.h"

#include "screen/dialogs.h"
#include "screen/process_end.h"
#include "screen/text.h"

namespace kq {

void confirme_fin_prog(int row)
{
    if (confirme("Do you really want to exit from this program?", row) == answer_yes) end_program(0);
    _clearscreen(1);
}

} // namespace kq
