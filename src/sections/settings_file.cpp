#include "sections/database_cs.h"

#include "host/app/disk.h"
#include "host/text.h"
#include "sections/run_options.h"
#include "sections/settings_text.h"
#include "util/fields.h"
#include "util/folders.h"
#include "util/numbers.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <variant>

namespace
{

struct Flag
{
    DrawOption option;
};

struct Layer
{
    DrawOption option;
};

/// A path that is written without the module folder it lies in.
struct Path
{
    std::u16string DatabaseCS::*text;
};

using Field = std::variant<double DatabaseCS::*, int DatabaseCS::*, std::u16string DatabaseCS::*, Flag, Layer, Path>;

struct Setting
{
    std::u16string_view key;
    Field field;
};

/// Every setting of the file, in the order in which they are written.
constexpr Setting kSettings[] = {
    {u"Forward distance", &DatabaseCS::m_dForwardDistance},
    {u"Backward distance", &DatabaseCS::m_dBackwardDistance},
    {u"TextHei", &DatabaseCS::m_dTextHeight},
    {u"DeltaY", &DatabaseCS::m_dDeltaY},
    {u"Draw Symbol Layer Name", Flag{kSymbolText}},
    {u"Layer Symbol Layer Name", Layer{kSymbolText}},
    {u"Breakpoint feature code", Flag{kFcodeText}},
    {u"Layer Breakpoint feature code", Layer{kFcodeText}},
    {u"Check Section symbol layer", Flag{kSymbol}},
    {u"Section symbol layer", Layer{kSymbol}},
    {u"Check Breakpoint symbol layer", Flag{kFcode}},
    {u"Breakpoint symbol layer", Layer{kFcode}},
    {u"Check Select", &DatabaseCS::m_nCheckSelect},
    {u"Path Select", Path{&DatabaseCS::m_strPathSelect}},
    {u"File symbol last select", Path{&DatabaseCS::m_strFileSymbolLastSelect}},
    {u"File line last select", Path{&DatabaseCS::m_strFileLineLastSelect}},
    {u"Symbol ScaleX", &DatabaseCS::m_dSymbolScaleX},
    {u"Symbol ScaleY", &DatabaseCS::m_dSymbolScaleY},
    {u"Symbol Rotate", &DatabaseCS::m_dSymbolRotate},
    {u"Line ScaleX", &DatabaseCS::m_dLineScaleX},
    {u"Line ScaleY", &DatabaseCS::m_dLineScaleY},
    {u"Line Rotate", &DatabaseCS::m_dLineRotate},
    {u"Alignment", &DatabaseCS::m_strAlignment},
};

constexpr int kDecimals = 6;

/// Stores a value of the file in its field.
struct Store
{
    DatabaseCS& database;
    const std::u16string& text;

    void operator()(double DatabaseCS::*real) const { database.*real = ToReal(text); }
    void operator()(int DatabaseCS::*integer) const { database.*integer = ToInteger(text); }
    void operator()(std::u16string DatabaseCS::*string) const { database.*string = text; }
    void operator()(Path path) const { database.*path.text = text; }
    void operator()(Flag flag) const { database.m_arrDrawFlags[flag.option] = static_cast<unsigned>(ToInteger(text)); }
    void operator()(Layer layer) const { database.m_arrLayerNames[layer.option] = text; }
};

/// `path` from the backslash behind the module folder on, when that folder occurs in it.
std::u16string withoutModuleFolder(const std::u16string& path)
{
    return path.find(ModuleFolder) == std::u16string::npos ? path : path.substr(ModuleFolder.size());
}

/// The text of a field as the file holds it; nothing for the options while there are none.
struct Show
{
    using Text = std::optional<std::u16string>;

    const DatabaseCS& database;

    Text operator()(double DatabaseCS::*real) const { return FormatReal(database.*real, kDecimals); }
    Text operator()(int DatabaseCS::*integer) const { return FormatInteger(database.*integer); }
    Text operator()(std::u16string DatabaseCS::*string) const { return database.*string; }
    Text operator()(Path path) const { return withoutModuleFolder(database.*path.text); }
    Text operator()(Flag flag) const
    {
        if (database.m_arrDrawFlags.empty())
            return std::nullopt;
        return FormatInteger(static_cast<int>(database.m_arrDrawFlags[flag.option]));
    }
    Text operator()(Layer layer) const
    {
        if (database.m_arrDrawFlags.empty())
            return std::nullopt;
        return database.m_arrLayerNames[layer.option];
    }
};

void storeLine(DatabaseCS& database, std::u16string_view line)
{
    const std::vector<std::u16string> fields = SplitFields(line, u'=', EmptyFields::kSkip);
    if (fields.size() < 2)
        return;
    const auto* setting = std::find_if(std::begin(kSettings), std::end(kSettings),
                                       [&fields](const Setting& known) { return equalNoCase(known.key, fields[0]); });
    if (setting != std::end(kSettings))
        std::visit(Store{database, fields[1]}, setting->field);
}

void checkOptions(const DatabaseCS& database)
{
    if (database.m_arrDrawFlags.empty())
        return;
    if (database.m_arrDrawFlags.size() < kDrawOptionCount || database.m_arrLayerNames.size() < kDrawOptionCount)
        throw std::invalid_argument("the drawing options are incomplete");
}

void storeLines(DatabaseCS& database, std::string_view rest)
{
    database.m_arrDrawFlags.assign(kDrawOptionCount, 0);
    database.m_arrLayerNames.resize(kDrawOptionCount);
    while (!rest.empty())
    {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        storeLine(database, DecodeSettings(line));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
}

std::u16string inFolder(std::u16string folder)
{
    return (folder += u'\\') += kSettingsFile;
}

} // namespace

RunOptions g_RunOptions;

void DatabaseCS::LoadSettings()
{
    m_arrDrawFlags.clear();
    if (const std::optional<std::string> bytes = ReadWholeFile(inFolder(UserDataPath())))
        storeLines(*this, *bytes);
    if (const auto& distances = g_RunOptions.distances)
    {
        m_dBackwardDistance = distances->backward;
        m_dForwardDistance = distances->forward;
    }
}

bool DatabaseCS::SaveSettings() const
{
    checkOptions(*this);
    if (g_RunOptions.keepStoredSettings)
        return true;
    std::string bytes;
    for (const Setting& setting : kSettings)
    {
        if (const auto text = std::visit(Show{*this}, setting.field))
            bytes += EncodeSettings(setting.key) + '=' + EncodeSettings(*text) + '\n';
    }
    return ReplaceFile(inFolder(UserDataFolder()), bytes);
}
