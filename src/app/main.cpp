// platform: the program's entry.
#include "app/program.h"

int main()
{
    kq::run_program();
}
