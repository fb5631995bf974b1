// screen: a file of an analysis while it is written.
#pragma once

#include "analysis/progress.h"
#include "analysis/put_text.h"
#include "screen/background_file.h"

#include <string>
#include <string_view>

namespace kq {

// The file that nomfic names, in the working directory: complete after commit(), else as it was before. What
// was under its name is replaced. ESCAPE is looked for all the while, as in go_on().
class OutputFile {
public:
    OutputFile();

    // False when the file will not come about.
    bool write(std::string_view text) { return file_.write(text); }
    PutText put()
    {
        return [this](std::string_view text) { return write(text); };
    }
    // False when ESCAPE stopped it or it could not be written, which has been shown.
    bool commit();

private:
    const std::string name_;
    FileProgress progress_;
    BackgroundFile file_;
};

// Between its two ends an analysis keeps the names of the files that it completes.
void begin_outputs();
// Leaves a notice of these files; `stopped`: there should have been more.
enum class Outputs { complete, stopped };
void end_outputs(Outputs outputs);

} // namespace kq
