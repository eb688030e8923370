#pragma once

#include "picture/look/palette.h"
#include "picture/notes.h"
#include "store/text/text.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <vector>

class AcDbDatabase;

namespace picture
{

/// A colour as entities and layers say it.
struct Color
{
    static constexpr int32_t kByLayer = -1;
    static constexpr int32_t kByBlock = -2;
    static constexpr int32_t kForeground = -3; ///< what contrasts with the background
    static constexpr int32_t kBackground = -4;
    int32_t value = kByLayer; ///< one of these, or 0xRRGGBB

    friend bool operator==(const Color&, const Color&) = default;
};

/// How an entity is to be drawn, as it says itself: what comes from its layer or its block is still open.
struct Look
{
    static constexpr int32_t kByLayer = -1;
    static constexpr int32_t kByBlock = -2;
    static constexpr int32_t kDefaultWeight = -3;

    uint32_t layer = 0; ///< index into `Looks::layers`; 0 is the layer "0", which takes on the block's
    Color color;
    int32_t linetype = kByLayer; ///< index into `Looks::linetypes`
    int32_t weight = kByLayer;   ///< hundredths of a millimetre
    double linetypeScale = 1.0;

    friend bool operator==(const Look&, const Look&) = default;
    friend bool operator<(const Look& a, const Look& b) { return a.key() < b.key(); }

private:
    std::tuple<uint32_t, int32_t, int32_t, int32_t, double> key() const
    {
        return {layer, color.value, linetype, weight, linetypeScale};
    }
};

/// A pattern of dashes (positive), gaps (negative) and dots (0), drawing units; without any it is continuous.
struct Linetype
{
    std::vector<double> dashes;
    double length = 0.0;

    friend bool operator==(const Linetype&, const Linetype&) = default;
};

struct Layer
{
    std::u16string name;
    Color color{Color::kForeground};
    int32_t linetype = 0;
    int32_t weight = Look::kDefaultWeight;
    bool frozen = false;
    bool off = false;

    friend bool operator==(const Layer&, const Layer&) = default;
};

/// A look with nothing open: what a pen needs.
struct Pen
{
    Color color{Color::kForeground};
    int32_t linetype = 0;
    int32_t weight = Look::kDefaultWeight;
    double linetypeScale = 1.0;
    uint32_t layer = 0;
    bool shown = true;
    bool frozen = false; ///< then also what stands in a block on other layers is not shown

    friend bool operator==(const Pen&, const Pen&) = default;
};

/// The looks of a drawing: its layers and linetypes, and every look its entities have, each once.
class Looks
{
public:
    Looks(AcDbDatabase& database, Notes& notes);

    /// A colour by its number in drawings.
    static Color colorOf(int64_t index);
    /// A linetype by its name as entities write it, `Look::kByLayer` and the like among them.
    int32_t linetypeNamed(std::string_view raw);
    /// The look of an entity from its pairs; `isInvisible` receives whether it says of itself that it is not shown.
    uint32_t lookOf(std::string_view pairs, bool& isInvisible);
    uint32_t indexOf(const Look& look);
    const Look& look(uint32_t index) const { return m_looks[index]; }
    uint32_t count() const { return static_cast<uint32_t>(m_looks.size()); }
    /// The look with what is open taken from its layer, or from the block reference around it (null at the top).
    Pen pen(uint32_t look, const Pen* around) const;

    const std::vector<Layer>& layers() const { return m_layers; }
    const Linetype& linetype(int32_t index) const { return m_linetypes[static_cast<size_t>(index)]; }
    /// Reads the tables anew: layers or linetypes were changed. Whether anything that was there looks different now.
    bool reload();
    /// Shows only the layers whose names match one of the patterns (with * and ?); all when there are none.
    void showOnly(const std::vector<std::u16string>& patterns)
    {
        m_patterns = patterns;
        reload();
    }

private:
    uint32_t layerNamed(std::string_view raw);
    uint32_t addLayer(Layer layer);
    void readLinetypes();
    void readLayers();
    Linetype readLinetype(std::string_view pairs);
    Layer readLayer(std::string_view pairs);

    AcDbDatabase& m_database;
    Notes& m_notes;
    std::vector<Linetype> m_linetypes; ///< 0 is continuous
    std::unordered_map<std::u16string, int32_t, HashNoCase, EqualNoCase> m_linetypeOf;
    std::vector<Layer> m_layers;
    std::unordered_map<std::u16string, uint32_t, HashNoCase, EqualNoCase> m_layerOf;
    std::map<std::string, uint32_t, std::less<>> m_layerOfRaw;
    std::vector<Look> m_looks;
    std::map<Look, uint32_t> m_lookIndex;
    std::vector<std::u16string> m_patterns;
};

} // namespace picture
