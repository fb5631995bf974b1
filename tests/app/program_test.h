// The whole program on a private copy of the demo, from its file chooser on.
#pragma once

#include "app/program.h"
#include "core/chooser.h"
#include "support/screen_test.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace kq::test {

class ProgramTest : public ScreenTest {
protected:
    void SetUp() override
    {
        namespace fs = std::filesystem;
        constexpr auto copy_over = fs::copy_options::recursive | fs::copy_options::overwrite_existing;
        fs::copy(KQ_SOURCE_DIRECTORY "/demo/ZOLT", root(), copy_over);
        fs::copy(KQ_SOURCE_DIRECTORY "/demo/ZOLTEXE", root(), copy_over);
    }

    // The memory file, so that nothing is asked at the start.
    void remember(const std::string& frame, const std::string& files) const
    {
        const std::string data = path("zolt/data/");
        write_file("zolt/data/afas.ref", frame + '\n' + data + files + ".nom\n" + data + files + ".col\n");
    }

    Ending run(std::string_view script)
    {
        chooser_reset();
        played_ = play(script, [] { run_program(); });
        return played_.ending;
    }

    Played played_;
};

} // namespace kq::test
