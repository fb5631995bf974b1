// platform: the program's entry.
#include "app/program.h"
#include "screen/process_end.h"

#include <new>

int main()
{
    try {
        kq::run_program();
    } catch (const std::bad_alloc&) {
        kq::erreur_fatale("Insufficient available memory"); // after a rescue of unsaved work
    }
}
