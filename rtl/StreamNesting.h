#pragma once
// How deep components and values may nest in a component stream. Every
// reader of stream bytes or form text stops at this depth with a read
// error, so damaged or hostile input cannot exhaust the stack; real forms
// stay far below it.

inline constexpr int MaxStreamNesting = 256;
