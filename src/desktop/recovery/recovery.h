#pragma once

#include "desktop/recovery/recovery_file.h"

#include <QTimer>

#include <map>
#include <string>

namespace desktop
{

class DocumentTab;
class OpenDocument;
class Workspace;

/// Keeps what is changed and not saved in recovery files, and offers those that an earlier run of the program left
/// because it did not end by itself.
class Recovery
{
public:
    explicit Recovery(Workspace& workspace);

    /// Offers what was left behind, one after the other. Called while the window does something for the user.
    void offer();
    /// Writes what changed since it was written last; removes what is saved. Called by the clock too.
    void keep();
    /// The drawing was saved or given up: there is nothing to recover.
    void drop(DocumentTab& tab);
    /// A command changed a drawing: it is kept soon.
    void changed() { m_soon.start(); }
    /// The program ends now, and not by the user's will: keeps at once what can be kept.
    void keepNow() noexcept;

private:
    struct Kept
    {
        std::string file;
        uint64_t changeCount = 0;
        std::string recovered; ///< the file that the drawing was recovered from
    };

    void recover(const RecoveryNote& note);
    void write(DocumentTab& tab);
    static RecoveryNote noteOf(OpenDocument& document);

    Workspace& m_workspace;
    QTimer m_clock;
    QTimer m_soon;
    std::map<const DocumentTab*, Kept> m_kept;
    bool m_hasComplained = false;
};

} // namespace desktop
