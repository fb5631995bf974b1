// platform: prints the key reference (docs/keys.md) on standard output.
#include "app/key_reference.h"

#include <cstdio>

int main()
{
    return std::fputs(kq::key_reference().c_str(), stdout) < 0;
}
