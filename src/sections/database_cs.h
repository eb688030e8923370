#pragma once

#include "sections/records.h"

#include <string>
#include <string_view>
#include <vector>

/// The file in the user's folder that keeps the settings.
inline constexpr std::u16string_view kSettingsFile = u"iniSymbol.cfg";

/// The four things that a drawing of a section can show, each with a flag, a layer and (but the last) a colour.
enum DrawOption : size_t
{
    kSymbolText,
    kFcodeText,
    kSymbol,
    kFcode,
    kDrawOptionCount
};

/// A colour of the host's palette that leaves the choice to the layer.
constexpr int kColorByLayer = 256;

/// The state that all tools of the module share: the user's settings and the result of the last scan. There is one,
/// `g_DatabaseCS`, from module load to unload, used on the host's one thread. Lengths are drawing units.
struct DatabaseCS
{
    /// Reads "iniSymbol.cfg" of the user's folder. Without the file `m_arrDrawFlags` becomes empty and nothing else
    /// changes; with it, the option arrays have an entry for each option. Keys without a line keep their value.
    void LoadSettings();

    /// Writes "iniSymbol.cfg". Files below the module folder are written from that folder on. False when it could not
    /// be written; the earlier file is then as it was. Throws std::invalid_argument when the option arrays are
    /// neither empty nor complete.
    bool SaveSettings() const;

    bool m_bDistanceChanged = false; ///< a search distance was changed and the tables have not been shown since

    double m_dForwardDistance = 5.0; ///< how far from a section its objects are looked for
    double m_dBackwardDistance = 5.0;
    double m_dTextHeight = 0.4;
    double m_dDeltaY = 2.0; ///< height of the leader between the ground and its label
    AcDbObjectId m_idTextStyle;

    std::vector<unsigned> m_arrDrawFlags; ///< by `DrawOption`; empty until settings were read or applied
    std::vector<std::u16string> m_arrLayerNames;
    int m_nColorSymbolText = kColorByLayer;
    int m_nColorFcodeText = kColorByLayer;
    int m_nColorSymbol = kColorByLayer;

    int m_nCheckSelect = 0; ///< sections of a list start ticked (0) or unticked (1)

    double m_dSymbolScaleX = 1.0; ///< the largest scales in use when the dialog was closed last
    double m_dSymbolScaleY = 1.0;
    double m_dSymbolRotate = 0.0;
    double m_dLineScaleX = 1.0;
    double m_dLineScaleY = 1.0;
    double m_dLineRotate = 0.0;

    std::u16string m_strPathSelect; ///< folder and files chosen last
    std::u16string m_strFileSymbolLastSelect;
    std::u16string m_strFileLineLastSelect;
    std::u16string m_strAlignment; ///< name of the alignment chosen last

    ListItemReferenceLine m_listReferenceLines; ///< what the last scan found

    /// The stored scales and rotation of symbols, without a file.
    SymbolLook symbolScales() const { return {{}, m_dSymbolScaleX, m_dSymbolScaleY, m_dSymbolRotate}; }
    /// Stores the scales and rotations of symbols and of the survey points on cross-sections.
    void StoreScales(const SymbolLook& symbol, const SymbolLook& line);
};

extern DatabaseCS g_DatabaseCS;
