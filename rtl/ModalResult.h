#pragma once
// Modal results with the values the suite's forms store in their streams
// (a button's ModalResult property), so a value read from a form means the
// same here.

using TModalResult = int;

inline constexpr TModalResult mrNone = 0;
inline constexpr TModalResult mrOk = 1;
inline constexpr TModalResult mrCancel = 2;
inline constexpr TModalResult mrAbort = 3;
inline constexpr TModalResult mrRetry = 4;
inline constexpr TModalResult mrIgnore = 5;
inline constexpr TModalResult mrYes = 6;
inline constexpr TModalResult mrNo = 7;
inline constexpr TModalResult mrAll = 8;
inline constexpr TModalResult mrNoToAll = 9;
inline constexpr TModalResult mrYesToAll = 10;
inline constexpr TModalResult mrCommit = 11;
inline constexpr TModalResult mrRollBack = 12;
inline constexpr TModalResult mrHelp = 13;
inline constexpr TModalResult mrDetail = 14;
inline constexpr TModalResult mrClose = 15;

// The names of the values above, indexed by value ("mrNone" ... "mrClose").
inline constexpr int QzModalResultNameCount = 16;
const char* QzModalResultName(TModalResult result);  // nullptr beyond the table
