#pragma once

#include <string>
#include <vector>

/// Counts what is taken and given back, and notes what must not happen. A session that ends with anything left over has
/// found a fault in the code that used it; every test checks that.
struct Ledger
{
    int openObjects = 0;
    int lockDepth = 0;
    int selectionSets = 0;
    int resultBuffers = 0;
    std::vector<std::string> faults; ///< writes outside the lock, opens for write of an object open elsewhere, ...

    bool clean() const
    {
        return openObjects == 0 && lockDepth == 0 && selectionSets == 0 && resultBuffers == 0 && faults.empty();
    }
    /// One line that says what is left over; empty when nothing is.
    std::string describe() const;
};

/// The ledger of the thread: counted always, whatever session is current.
Ledger& ledger();
