#include "host/app/disk.h"

#include "disk/error.h"
#include "disk/read.h"
#include "disk/replace.h"
#include "host/app/paths.h"
#include "host/app/session.h"

std::optional<std::string> ReadWholeFile(std::u16string_view path)
try
{
    return std::string{disk::readFile(nativePath(path), host::diskFaults()).view()};
}
catch (const disk::FileError&)
{
    return std::nullopt;
}

bool WriteInPlace(std::u16string_view path, std::string_view bytes)
{
    return disk::writeInPlace(nativePath(path), bytes, host::diskFaults());
}

bool ReplaceFile(std::u16string_view path, std::string_view bytes)
{
    const std::string native = nativePath(path);
    try
    {
        disk::replaceFile(native, {bytes}, {}, host::diskFaults());
        return true;
    }
    catch (const disk::FileError&)
    {
        if (host::Session::hasCurrent())
            host::Session::current().unwrittenFiles().push_back(native);
        return false;
    }
}

namespace host
{

disk::Faults& diskFaults()
{
    return Session::hasCurrent() ? static_cast<disk::Faults&>(Session::current().faults()) : disk::noFaults();
}

} // namespace host
