#pragma once

#include "files/dxf/reader.h"
#include "files/dxf/save.h"
#include "host/app/session.h"
#include "support/memory_front_end.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

/// Faults that a test asks for by filling the fields.
class DemandedFaults : public Faults
{
public:
    std::set<AcDbObjectId> unwritable;
    bool noAppend = false;
    bool noSelection = false;
    std::map<std::string, int64_t> failingReads; ///< by path: bytes after which reading fails
    std::map<std::string, int64_t> failingWrites;

    bool refuseOpenForWrite(AcDbObjectId id) override { return unwritable.count(id) != 0; }
    bool refuseAppend() override { return noAppend; }
    bool refuseSelection() override { return noSelection; }
    int64_t failReadAt(const std::string& path) override { return limit(failingReads, path); }
    int64_t failWriteAt(const std::string& path) override { return limit(failingWrites, path); }

private:
    static int64_t limit(const std::map<std::string, int64_t>& limits, const std::string& path)
    {
        const auto found = limits.find(path);
        return found != limits.end() ? found->second : -1;
    }
};

/// A host for one test: real drawings in a folder of its own, a front end without a display, faults on demand. At its
/// end it fails the test when the ledger holds anything; a test that provokes faults takes them with `takeFaults`.
class TestSession
{
    // Stand before the session, which ends first.
    TempFolder m_folder;
    files::DxfReader m_reader;
    files::DxfWriter m_writer;

public:
    MemoryFrontEnd frontEnd;
    DemandedFaults faults;

    explicit TestSession(host::SessionOptions options = {})
    {
        ledger() = {};
        if (options.userDataFolder.empty())
            options.userDataFolder = (m_folder.path() / "settings").string();
        m_session.emplace(m_reader, m_writer, frontEnd, std::move(options));
        m_session->setFaults(&faults);
    }
    ~TestSession()
    {
        m_session.reset();
        EXPECT_EQ(ledger().describe(), "");
        ledger() = {};
    }
    TestSession(const TestSession&) = delete;
    TestSession& operator=(const TestSession&) = delete;

    host::Session& session() { return *m_session; }
    const TempFolder& folder() const { return m_folder; }

    /// Opens the text of a drawing file as a document.
    AcApDocument* open(const std::string& dxf)
    {
        const std::string name = "drawing" + std::to_string(++m_opened) + ".dxf";
        m_folder.write(name, dxf);
        return m_session->documents().open(m_folder.modulePath(name));
    }
    AcDbDatabase& drawing() { return *m_session->documents().curDocument()->database(); }
    /// The text of the current drawing as it is saved now.
    std::string saved()
    {
        m_writer.write(drawing(), (m_folder.path() / "saved.dxf").string());
        return m_folder.read("saved.dxf");
    }
    std::vector<std::string> takeFaults() { return std::exchange(ledger().faults, {}); }

private:
    std::optional<host::Session> m_session;
    int m_opened = 0;
};

/// Locks the current document for as long as it lives.
class TestLock
{
public:
    TestLock() : m_document{acDocManagerPtr()->curDocument()} { acDocManagerPtr()->lockDocument(m_document); }
    ~TestLock() { acDocManagerPtr()->unlockDocument(m_document); }
    TestLock(const TestLock&) = delete;
    TestLock& operator=(const TestLock&) = delete;

private:
    AcApDocument* m_document;
};
