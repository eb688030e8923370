#pragma once

#include "host/app/paths.h"
#include "store/text/text.h"

#include <QFile>
#include <QString>

namespace desktop
{

/// The window's texts and those of the host: the one place where they become each other.
inline QString toQString(std::u16string_view text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::u16string toHost(const QString& text)
{
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<size_t>(text.size())};
}

/// A path of the file system for a person; bytes that are not UTF-8 show as the letters they are in 8-bit Vietnamese.
inline QString shownPath(const std::string& path)
{
    return toQString(lettersForBytes(keepBytes(path)));
}
/// A path as Qt's dialogs name it, and back.
inline std::string nativeOf(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}
inline QString qtPath(const std::string& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

} // namespace desktop
