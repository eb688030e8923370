#pragma once

#include "picture/notes.h"
#include "picture/text/font.h"
#include "store/text/text.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class AcDbDatabase;
class TextEncoding;

namespace picture
{

/// How the 8-bit texts of a font are to be read.
enum class Reading
{
    kPlain,
    kVietnamese,        ///< TCVN3 codes
    kVietnameseCapitals ///< the same, small letters shown as capitals
};

/// A font as a text uses it: shapes and how the text is read.
struct Typeface
{
    const Font* font = nullptr;
    Reading reading = Reading::kPlain;
};

/// A text style of the drawing.
struct TextStyle
{
    Typeface face;
    double height = 0.0; ///< fixed height; 0 when texts have their own
    double widthFactor = 1.0;
    double oblique = 0.0; ///< radians
};

/// The text styles of a drawing and the fonts they name. A font that is not found is replaced: one of strokes by the
/// program's own label font, an outline font by the system's substitute; both are noted. Owns the fonts.
class TextStyles
{
public:
    /// Stroke fonts are looked for in `folders`, in order; the program's own label font must stand in one of them.
    TextStyles(AcDbDatabase& database, std::vector<std::string> folders, Notes& notes);

    /// A style by its name as texts write it; the style of an unknown name is that of "Standard".
    const TextStyle& style(std::string_view raw);
    /// Whether a style of this name was asked for: texts hang on it.
    bool isUsed(std::u16string_view name) const;
    /// Reads styles anew when they are next asked for.
    void forget() { m_byRawName.clear(); }
    /// A font that a multi-line text names itself.
    Typeface outlineFace(const std::string& family, bool bold, bool italic);
    Typeface strokeFace(const std::string& file);

    /// The text as it is to be read in a face, letters composed.
    std::u16string read(std::u16string_view text, const Typeface& face) const;
    /// A file by the last part of its name, in any of the folders; empty when it is not there.
    std::string findFile(const std::string& name) const;
    /// The face's own font, or one that has all characters of the text where the face's lacks some.
    const Font& fontFor(const Typeface& face, std::u16string_view text);

private:
    TextStyle readStyle(std::string_view pairs);
    Typeface faceOfFile(const std::string& file);
    std::unique_ptr<Font> loadStrokes(const std::string& file);
    char16_t byteOf(char16_t unit) const;

    AcDbDatabase& m_database;
    std::vector<std::string> m_folders;
    Notes& m_notes;
    std::shared_ptr<const TextEncoding> m_codePage; ///< the drawing's own
    std::unordered_map<std::string, TextStyle> m_byRawName;
    std::map<std::string, std::unique_ptr<Font>> m_fonts; ///< by what names them
};

} // namespace picture
