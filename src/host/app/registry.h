#pragma once

#include "host/db/database.h"
#include "host/db/rx.h"

#include <string>
#include <vector>

/// Hears what the editor announces.
class AcEditorReactor
{
public:
    virtual ~AcEditorReactor() = default;
    /// A newly opened drawing's database is complete and has its document.
    virtual void endDwgOpen(AcDbDatabase*) {}
};

/// The editor: where its reactors are kept.
class AcEditor : public AcRxObject
{
public:
    void addReactor(AcEditorReactor* reactor) { m_reactors.push_back(reactor); }
    void removeReactor(AcEditorReactor* reactor) { std::erase(m_reactors, reactor); }
    const std::vector<AcEditorReactor*>& reactors() const { return m_reactors; }

private:
    std::vector<AcEditorReactor*> m_reactors;
};

constexpr int ACRX_CMD_MODAL = 0;

/// The commands the loaded modules have registered, by group. Names are compared without regard to case.
class AcEdCommandStack : public AcRxObject
{
public:
    using Handler = void (*)();
    struct Command
    {
        std::u16string group;
        std::u16string globalName;
        std::u16string localName;
        Handler handler = nullptr;
    };

    /// `eDuplicateRecordName` when one of the names is taken.
    Acad::ErrorStatus addCommand(const char16_t* group, const char16_t* globalName, const char16_t* localName,
                                 int flags, Handler handler, void* uiContext = nullptr, int functionCode = -1,
                                 void* resource = nullptr);
    Acad::ErrorStatus removeGroup(const char16_t* group);
    /// The command of a local or global name; null when there is none.
    const Command* lookup(std::u16string_view name) const;
    const std::vector<Command>& commands() const { return m_commands; }

private:
    std::vector<Command> m_commands;
};

/// The host's objects by name: "AcEditor", "ACAD_REGISTERED_COMMANDS".
class AcRxSystemRegistry
{
public:
    AcRxObject* at(std::u16string_view name) const;
};

AcRxSystemRegistry* acrxSysRegistry();
AcEdCommandStack* acedRegCmds();
AcEditor* acedEditor();

/// Makes newly described classes known. Nothing to do on this host beyond being asked.
void acrxBuildClassHierarchy();

class AcRxDynamicLinker
{
public:
    void unlockApplication(void* applicationId);
    void registerAppMDIAware(void* applicationId);
};
AcRxDynamicLinker* acrxDynamicLinker();

namespace AcRx
{
enum AppMsgCode
{
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4
};
enum AppRetCode
{
    kRetOK = 0,
    kRetError = 3
};
} // namespace AcRx
