// screen: a file of an analysis while it is written.
#include "analysis/output_file.h"

#include "analysis/output_names.h"
#include "screen/dialogs.h"
#include "screen/notice.h"

#include <filesystem>
#include <system_error>
#include <vector>

namespace kq {

namespace {

constexpr int warning_line = 5;
constexpr std::size_t most_named = 3; // files; of more than these the first and the last are named

std::vector<std::string> completed;

std::string names_of_completed()
{
    if (completed.size() > most_named)
        return std::to_string(completed.size()) + " files, " + completed.front() + " to " + completed.back();
    std::string names = completed.front();
    for (std::size_t i = 1; i < completed.size(); i++)
        names += ", " + completed[i];
    return names;
}

} // namespace

OutputFile::OutputFile()
    : name_(nomfic)
    , progress_(name_)
    , file_("./" + name_, [this] { return progress_.show(); })
{
}

bool OutputFile::commit()
{
    const bool complete = file_.commit();
    progress_.close();
    if (complete)
        completed.push_back(name_);
    else if (!file_.error().empty())
        affich_avert(file_.error(), warning_line);
    return complete;
}

void begin_outputs()
{
    completed.clear();
}

void end_outputs(Outputs outputs)
{
    std::error_code unknown;
    const std::string directory = std::filesystem::current_path(unknown).string();
    const std::string stopped = outputs == Outputs::stopped ? "Stopped. " : "";
    if (completed.empty())
        leave_notice(stopped + "No file has been written");
    else
        leave_notice(stopped + "Written to " + directory + ": " + names_of_completed());
}

} // namespace kq
