#include "host/db/class_registry.h"

#include <algorithm>

namespace
{

constinit const AcRxClass* plain = nullptr;

std::vector<HostClass>& registered()
{
    static std::vector<HostClass> classes;
    return classes;
}

template <class Test>
const HostClass* firstThat(const Test& test)
{
    const std::vector<HostClass>& classes = registered();
    const auto found = std::find_if(classes.begin(), classes.end(), test);
    return found != classes.end() ? &*found : nullptr;
}

} // namespace

void ClassRegistry::set(std::vector<HostClass> classes, const AcRxClass* plainEntity)
{
    registered() = std::move(classes);
    plain = plainEntity;
}

const HostClass* ClassRegistry::ofDxfName(std::string_view dxfName)
{
    return firstThat([&](const HostClass& each) { return !each.dxfName.empty() && each.dxfName == dxfName; });
}

const HostClass* ClassRegistry::plainEntity()
{
    return firstThat([&](const HostClass& each) { return each.kind == plain; });
}

const AcRxClass* ClassRegistry::ofTable(std::string_view table)
{
    const HostClass* found = firstThat([&](const HostClass& each) { return !table.empty() && each.table == table; });
    return found != nullptr ? found->kind : nullptr;
}

std::string_view ClassRegistry::tableOf(const AcRxClass* kind)
{
    const HostClass* found = firstThat([&](const HostClass& each) { return each.kind == kind; });
    return found != nullptr ? found->table : std::string_view{};
}

std::unique_ptr<AcDbObject> ClassRegistry::make(const AcRxClass* kind)
{
    const HostClass* found = firstThat([&](const HostClass& each) { return each.kind == kind; });
    return found != nullptr ? found->make() : std::make_unique<AcDbObject>();
}
