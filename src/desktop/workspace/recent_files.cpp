#include "desktop/workspace/recent_files.h"

#include "desktop/language/qt_text.h"

#include <QSettings>

#include <algorithm>
#include <filesystem>

namespace desktop
{

namespace
{

constexpr const char* kSetting = "recentFiles";
constexpr size_t kMost = 10;

} // namespace

/// Kept as bytes: names on disk need not be UTF-8.
std::vector<std::string> recentFiles()
{
    std::vector<std::string> files;
    for (const QString& each : QSettings{}.value(kSetting).toStringList())
        files.push_back(QByteArray::fromPercentEncoding(each.toLatin1()).toStdString());
    return files;
}

void addRecentFile(const std::string& path)
{
    std::error_code error;
    const std::string whole = std::filesystem::absolute(path, error).lexically_normal().string();
    std::vector<std::string> files = recentFiles();
    std::erase(files, whole);
    files.insert(files.begin(), whole);
    files.resize(std::min(files.size(), kMost));
    QStringList kept;
    for (const std::string& file : files)
        kept.append(QString::fromLatin1(QByteArray::fromStdString(file).toPercentEncoding("/ ")));
    QSettings{}.setValue(kSetting, kept);
}

} // namespace desktop
