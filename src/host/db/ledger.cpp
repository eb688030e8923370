#include "host/db/ledger.h"

namespace
{
constinit thread_local Ledger ownLedger;
}

Ledger& ledger()
{
    return ownLedger;
}

std::string Ledger::describe() const
{
    std::string text;
    const auto add = [&text](const std::string& what) { text += (text.empty() ? "" : "; ") + what; };
    const auto count = [&add](int number, const char* what)
    {
        if (number != 0)
            add(std::string{what} + ": " + std::to_string(number));
    };
    count(openObjects, "open objects");
    count(lockDepth, "document locks");
    count(selectionSets, "selection sets");
    count(resultBuffers, "result buffers");
    for (const std::string& fault : faults)
        add(fault);
    return text;
}
