#include "frame/tracking/tracking.h"

#include "frame/tracking/document_data.h"

#include <optional>

namespace
{

/// What the module has attached to the host. Members go in the reverse order: first the editor's reactor, so that no
/// record comes up while the others go.
struct Tracking
{
    AsdkDataManager<CDocData> documents;
    ArxEdReactor editor;
};

std::optional<Tracking> g_tracking;

void track(AcApDocument* document)
{
    g_tracking->documents.RecordFor(document).m_reactor = std::make_unique<ArxDbReactor>(document);
}

void setTracking(bool on)
{
    if (g_tracking)
        g_tracking->documents.setTracking(on);
}

} // namespace

ArxEdReactor::ArxEdReactor() : m_editor(static_cast<AcEditor*>(acrxSysRegistry()->at(u"AcEditor")))
{
    m_editor->addReactor(this);
}

void ArxEdReactor::endDwgOpen(AcDbDatabase* database)
{
    AcApDocument* document = acDocManagerPtr()->document(database);
    if (document != nullptr && g_tracking->documents.isTracking())
        track(document);
}

void StartTracking()
{
    g_tracking.emplace();
    for (auto documents = acDocManagerPtr()->newAcApDocumentIterator(); !documents->done(); documents->step())
        track(documents->document());
}

void StopTracking()
{
    g_tracking.reset();
}

size_t TrackedDocuments()
{
    return g_tracking ? g_tracking->documents.size() : 0;
}

TrackingPause::TrackingPause()
{
    setTracking(false);
}

TrackingPause::~TrackingPause()
{
    setTracking(true);
}
