#include "frame/entry/command_table.h"

#include "host/app/registry.h"
#include "plan/dvbd_command.h"
#include "sectiondraw/commands.h"

namespace
{

const std::u16string CommandGroupName = u"PLX_SV";
constexpr int kNoFunctionCode = -1;

struct Command
{
    const char16_t* localName;
    AcEdCommandStack::Handler handler;
};

constexpr Command CommandTable[] = {{u"ZE", ZeCommand}, {u"DSS", DssCommand}, {u"DVBD", DvbdCommand}};

AcEdCommandStack* commandStack()
{
    return static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(u"ACAD_REGISTERED_COMMANDS"));
}

} // namespace

void RegisterCommands()
{
    for (const Command& command : CommandTable)
    {
        const std::u16string globalName = CommandGroupName + u"_" + command.localName;
        commandStack()->addCommand(CommandGroupName.c_str(), globalName.c_str(), command.localName, ACRX_CMD_MODAL,
                                   command.handler, nullptr, kNoFunctionCode, nullptr);
    }
}

void RemoveCommands()
{
    commandStack()->removeGroup(CommandGroupName.c_str());
}
