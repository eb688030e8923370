#include "bench/support/open_drawing.h"

#include "bench/support/drawings.h"
#include "store/block_index.h"
#include "store/text/text.h"

#include <stdexcept>

namespace bench
{

int SilentFrontEnd::runModal(CDialog& dialog)
{
    return dialog.result();
}

namespace
{

host::SessionOptions ownFolder()
{
    host::SessionOptions options;
    options.userDataFolder = dataFolder() + "/settings";
    return options;
}

} // namespace

OpenDrawing::OpenDrawing(const std::string& path)
    : m_session(m_reader, m_writer, m_frontEnd, ownFolder()), m_document(m_session.documents().open(toUtf16(path)))
{
}

void readForCommands(AcDbDatabase& database, const std::string& path)
{
    files::DxfReader reader;
    database.adopt(reader.read(path, DrawingReader::Purpose::Drawing));
    AcDbObjectId any;
    database.getAcDbObjectId(any, false, AcDbHandle{1});
    if (database.blocks().record(u"*Model_Space") == nullptr)
        throw std::runtime_error(path + " has no model space");
    if (database.clayer().isNull())
        throw std::runtime_error(path + " has no current layer");
}

} // namespace bench
