#pragma once

class Desk;

/// What a user does with the current drawing: sections scanned and drawn, the plan's points given symbols, saved,
/// opened again, taken back. Checks on the way that a saved drawing reads back, also when the symbols were taken back,
/// and that what nobody touched is the same to the byte in it.
void workOnRoad(Desk& desk);
