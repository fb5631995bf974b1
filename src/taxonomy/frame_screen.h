// screen: choosing the systematic frame.
#pragma once

namespace kq {

// The list of frames. A frame that is confirmed is read at once (not scaled: its numbers are the file's own)
// and remembered.
void choice_frame();
// Shows a frame's header and asks for confirmation: 0 = the frame has been read, -1 = cancelled.
int confirme_choice_frame(int index);

} // namespace kq
