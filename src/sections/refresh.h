#pragma once

struct CrossSectionXdata;
struct DatabaseCS;
struct SymbolLook;

/// Rebuilds the rows of the objects near a section: blocks with a feature code and coded survey points in the band that
/// reaches `backward` behind it and `forward` ahead of it, as far as the view shows them. A row whose object is still
/// there stays as it was; a new one starts with `look`. An object beside neither half of the section, or at its
/// midpoint, gets no row.
void RefreshSection(CrossSectionXdata& section, double forward, double backward, const SymbolLook& look);

/// The same for every section of the last scan, with the search distances and the scales of `database`.
void RefreshAllSections(DatabaseCS& database);
