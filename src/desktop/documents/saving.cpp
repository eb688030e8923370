#include "desktop/documents/saving.h"

#include "files/dxf/save.h"

#include <cerrno>

namespace desktop
{

namespace
{

/// Refuses the next step of a saving that is to end.
class StoppedFaults : public disk::Faults
{
public:
    StoppedFaults(disk::Faults& others, const std::stop_token& stop) : m_others{others}, m_stop{stop} {}

    int64_t failReadAt(const std::string& path) override { return m_others.failReadAt(path); }
    int64_t failWriteAt(const std::string& path) override
    {
        return m_stop.stop_requested() ? 0 : m_others.failWriteAt(path);
    }
    int refuse(disk::Step step, const std::string& path) override
    {
        return m_stop.stop_requested() ? ECANCELED : m_others.refuse(step, path);
    }

private:
    disk::Faults& m_others;
    const std::stop_token& m_stop;
};

} // namespace

disk::FileStamp saveSnapshot(const Snapshot& drawing, const SaveRequest& request, const std::stop_token& stop)
{
    StoppedFaults faults{*request.faults, stop};
    files::saveDrawingBytes(drawing.pieces(), request.path, request.seen, faults);
    return disk::stampOf(request.path);
}

} // namespace desktop
