#pragma once

#include "sections/name_set.h"

/// What the user had given names and codes in a tree that is about to be replaced: the first row of a name, in tree
/// order, stands for all of that name.
struct RememberedSettings
{
    explicit RememberedSettings(const ListItemReferenceLine& tree);

    /// Gives a row what is remembered of its name, if anything.
    template <class Row>
    static void apply(const NameSet& set, const std::u16string& name, Row& row)
    {
        if (const SetName_Index* remembered = set.find(name))
            row.look() = remembered->look();
    }

    NameSet symbols;
    NameSet sectionCodes;
    NameSet planCodes;

private:
    void remember(const CrossSectionXdata& section);
};
