#pragma once

class Desk;

/// Every kind of what a symbol may hold, in the oldest form.
inline constexpr const char* kSymbol =
    "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n"
    "0\nLINE\n8\nS\n10\n0\n20\n0\n11\n1\n21\n1\n0\nARC\n8\n0\n10\n0\n20\n0\n40\n1\n50\n0\n51\n9\n"
    "0\nENDSEC\n0\nEOF\n";

/// What a user does with the current drawing: sections scanned and drawn, the plan's points given symbols, saved,
/// opened again, taken back. Checks on the way that a saved drawing reads back, also when the symbols were taken back,
/// and that what nobody touched is the same to the byte in it.
void workOnRoad(Desk& desk);
