#include "host/app/registry.h"

#include "host/app/session.h"
#include "store/text/text.h"

#include <algorithm>

Acad::ErrorStatus AcEdCommandStack::addCommand(const char16_t* group, const char16_t* globalName,
                                               const char16_t* localName, int /*flags*/, Handler handler,
                                               void* /*uiContext*/, int /*functionCode*/, void* /*resource*/)
{
    if (group == nullptr || globalName == nullptr || localName == nullptr || handler == nullptr)
        return Acad::eInvalidInput;
    if (lookup(globalName) != nullptr || lookup(localName) != nullptr)
        return Acad::eDuplicateRecordName;
    m_commands.push_back({group, globalName, localName, handler});
    return Acad::eOk;
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const char16_t* group)
{
    const auto removed = std::erase_if(m_commands, [group](const Command& c) { return equalNoCase(c.group, group); });
    return removed != 0 ? Acad::eOk : Acad::eKeyNotFound;
}

const AcEdCommandStack::Command* AcEdCommandStack::lookup(std::u16string_view name) const
{
    const auto found = std::find_if(m_commands.begin(), m_commands.end(),
                                    [name](const Command& c)
                                    { return equalNoCase(c.localName, name) || equalNoCase(c.globalName, name); });
    return found != m_commands.end() ? &*found : nullptr;
}

AcRxObject* AcRxSystemRegistry::at(std::u16string_view name) const
{
    if (name == u"AcEditor")
        return acedEditor();
    if (name == u"ACAD_REGISTERED_COMMANDS")
        return acedRegCmds();
    return nullptr;
}

AcRxSystemRegistry* acrxSysRegistry()
{
    static AcRxSystemRegistry registry;
    return &registry;
}

AcEdCommandStack* acedRegCmds()
{
    return host::Session::hasCurrent() ? &host::Session::current().commands() : nullptr;
}

AcEditor* acedEditor()
{
    return host::Session::hasCurrent() ? &host::Session::current().editor() : nullptr;
}

void acrxBuildClassHierarchy() {}

void AcRxDynamicLinker::unlockApplication(void* /*applicationId*/) {}

void AcRxDynamicLinker::registerAppMDIAware(void* /*applicationId*/) {}

AcRxDynamicLinker* acrxDynamicLinker()
{
    static AcRxDynamicLinker linker;
    return &linker;
}
