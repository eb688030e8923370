#include "host/app/disk.h"

#include "disk/error.h"
#include "disk/read.h"
#include "disk/replace.h"
#include "host/app/paths.h"
#include "host/app/session.h"

#include <sys/stat.h>

namespace
{

thread_local host::NothingKept* innermost = nullptr;

} // namespace

std::optional<std::string> ReadWholeFile(std::u16string_view path)
try
{
    const std::string native = nativePath(path);
    if (innermost != nullptr)
        if (const auto kept = innermost->files.find(native); kept != innermost->files.end())
            return kept->second;
    return std::string{disk::readFile(native, host::diskFaults()).view()};
}
catch (const disk::FileError&)
{
    return std::nullopt;
}

bool WriteInPlace(std::u16string_view path, std::string_view bytes)
{
    return innermost != nullptr || disk::writeInPlace(nativePath(path), bytes, host::diskFaults());
}

void MakeFolder(std::u16string_view path)
{
    constexpr mode_t kFolderMode = 0777;
    if (innermost == nullptr)
        (void)::mkdir(nativePath(path).c_str(), kFolderMode);
}

bool ReplaceFile(std::u16string_view path, std::string_view bytes)
{
    const std::string native = nativePath(path);
    if (innermost != nullptr)
    {
        innermost->files[native] = bytes;
        return true;
    }
    try
    {
        disk::replaceFile(native, {bytes}, {.inPlaceIfNeeded = true}, host::diskFaults());
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

NothingKept::NothingKept() : m_outer{innermost}
{
    innermost = this;
}

NothingKept::~NothingKept()
{
    innermost = m_outer;
}

bool keepsNothing()
{
    return innermost != nullptr;
}

disk::Faults& diskFaults()
{
    return Session::hasCurrent() ? static_cast<disk::Faults&>(Session::current().faults()) : disk::noFaults();
}

} // namespace host
