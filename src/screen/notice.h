// screen: a message that asks for no key.
#pragma once

#include <string>

namespace kq {

// Keeps a message for the next read_key_with_notice(), in the place of one that is still kept.
void leave_notice(std::string text);
// GrKeyRead(). A message that has been left covers the lowest lines of the screen until the key comes, which
// means what it always means.
int read_key_with_notice();

} // namespace kq
