// model: the codes that GrKeyRead returns, under the names used by every key table.
#pragma once

namespace kq::key {

// Characters stand for themselves (32..126); the others follow the PC extended-key numbering.
inline constexpr int backspace = 8;
inline constexpr int tab = 9;
inline constexpr int enter = 13;
inline constexpr int escape = 27;
inline constexpr int del = 127; // the Delete key arrives as its character code
inline constexpr int alt_backspace = 270;
inline constexpr int shift_tab = 271;
inline constexpr int f1 = 315, f2 = 316, f3 = 317, f4 = 318, f5 = 319;
inline constexpr int f6 = 320, f7 = 321, f8 = 322, f9 = 323, f10 = 324;
inline constexpr int home = 327, up = 328, pgup = 329;
inline constexpr int alt_keypad_minus = 330;
inline constexpr int left = 331, right = 333;
inline constexpr int alt_keypad_plus = 334;
inline constexpr int end = 335, down = 336, pgdn = 337, insert = 338;
inline constexpr int shift_f1 = 340, shift_f2 = 341, shift_f3 = 342, shift_f4 = 343, shift_f5 = 344;
inline constexpr int shift_f6 = 345, shift_f7 = 346, shift_f8 = 347, shift_f9 = 348, shift_f10 = 349;
inline constexpr int ctrl_left = 371, ctrl_right = 372, ctrl_end = 373;
inline constexpr int f11 = 389, f12 = 390, shift_f11 = 391, shift_f12 = 392;
inline constexpr int ctrl_up = 397, ctrl_down = 401, ctrl_insert = 402;
inline constexpr int alt_less = 432;
inline constexpr int shift_insert = 439;

} // namespace kq::key
