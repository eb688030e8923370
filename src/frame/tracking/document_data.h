#pragma once

#include "frame/tracking/reactors.h"

#include <memory>
#include <vector>

/// What the module keeps of one open document.
struct CDocData
{
    std::unique_ptr<ArxDbReactor> m_reactor; ///< on the document's database; a new one takes the place of an earlier
};

/// One record per open document, made when it is first asked for and deleted before the document goes. Hears of that
/// as a reactor of the document manager for as long as it lives.
template <class Data>
class AsdkDataManager : public AcApDocManagerReactor
{
public:
    AsdkDataManager() : m_manager(acDocManagerPtr()) { m_manager->addReactor(this); }
    ~AsdkDataManager() override { m_manager->removeReactor(this); }
    AsdkDataManager(const AsdkDataManager&) = delete;
    AsdkDataManager& operator=(const AsdkDataManager&) = delete;

    /// The record of a document.
    Data& RecordFor(AcApDocument* document)
    {
        for (const Entry& entry : m_entries)
            if (entry.document == document)
                return *entry.data;
        m_entries.push_back({document, std::make_unique<Data>()});
        return *m_entries.back().data;
    }

    void documentToBeDestroyed(AcApDocument* document) override
    {
        std::erase_if(m_entries, [document](const Entry& entry) { return entry.document == document; });
    }

    size_t size() const { return m_entries.size(); }

    /// While false, a newly opened drawing gets no reactor.
    bool isTracking() const { return m_tracking; }
    void setTracking(bool on) { m_tracking = on; }

private:
    struct Entry
    {
        AcApDocument* document;
        std::unique_ptr<Data> data;
    };

    AcApDocManager* m_manager;
    std::vector<Entry> m_entries;
    bool m_tracking = true;
};
