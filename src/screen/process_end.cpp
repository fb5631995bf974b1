// platform: the one way out of the program, fatal ends included.
#include "screen/process_end.h"

#include "screen/text.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace kq {

namespace {

void (*end_handler)(int status) = nullptr;
std::string (*rescue_work)() = nullptr;
std::string* error_sink = nullptr;

} // namespace

void end_program(int status)
{
    if (end_handler) end_handler(status);
    std::exit(status);
}

void set_end_handler(void (*handler)(int status))
{
    end_handler = handler;
}

void write_error(std::string_view text)
{
    if (error_sink) {
        *error_sink += text;
        return;
    }
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
}

void redirect_errors(std::string* sink)
{
    error_sink = sink;
}

void set_rescue(std::string (*rescue)())
{
    rescue_work = rescue;
}

void erreur_fatale(std::string_view message)
{
    // The hook is taken away first: a rescue that ends fatally itself is not tried again.
    std::string rescued;
    if (const auto rescue = std::exchange(rescue_work, nullptr)) rescued = rescue();

    _clearscreen(0);
    present_screen();
    write_error("The program has encountered the following FATAL ERROR :\n\n");
    write_error(message);
    write_error("\n\n\n");
    if (!rescued.empty()) write_error("The unsaved changes have been written to " + rescued + "\n");
    end_program(1);
}

} // namespace kq
