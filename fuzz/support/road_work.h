#pragma once

class Desk;

/// What a user does with the current drawing: sections scanned and drawn, the plan's points given symbols, saved,
/// opened again, taken back. Checks on the way that a saved drawing reads back, that what nobody touched is the same to
/// the byte in it, and that taking back leaves as many objects as there were.
void workOnRoad(Desk& desk);
