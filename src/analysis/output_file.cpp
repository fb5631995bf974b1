// screen: a file of an analysis while it is written.
#include "analysis/output_file.h"

#include "analysis/output_names.h"
#include "analysis/progress.h"
#include "screen/dialogs.h"

namespace kq {

namespace {

constexpr int warning_line = 5;

} // namespace

OutputFile::OutputFile()
    : file_("./" + nomfic, go_on)
{
}

bool OutputFile::commit()
{
    if (file_.commit()) return true;
    if (!file_.error().empty()) affich_avert(file_.error(), warning_line);
    return false;
}

} // namespace kq
