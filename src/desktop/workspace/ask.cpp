#include "desktop/workspace/ask.h"

#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace desktop
{

namespace
{

QString drawingFilters()
{
    return msg("Drawings") + " (*.dxf *.DXF *.dwg *.DWG);;DXF (*.dxf *.DXF);;DWG (*.dwg *.DWG);;" + msg("All files") +
           " (*)";
}

} // namespace

void Ask::tell(const QString& title, const QString& text, const QString& details)
{
    const Gate::Hold hold{m_gate};
    QMessageBox box{QMessageBox::Warning, title, text, QMessageBox::NoButton, &m_parent};
    box.addButton(msg("Close"), QMessageBox::AcceptRole);
    box.setTextFormat(Qt::PlainText);
    if (!details.isEmpty())
        box.setInformativeText(details);
    box.exec();
}

int Ask::choose(const QString& title, const QString& text, const std::vector<QString>& buttons)
{
    const Gate::Hold hold{m_gate};
    QMessageBox box{QMessageBox::Question, title, text, QMessageBox::NoButton, &m_parent};
    box.setTextFormat(Qt::PlainText);
    std::vector<QAbstractButton*> made;
    for (const QString& button : buttons)
        made.push_back(box.addButton(button, made.size() + 1 == buttons.size() ? QMessageBox::RejectRole
                                                                               : QMessageBox::ActionRole));
    box.setDefaultButton(static_cast<QPushButton*>(made.front()));
    box.setEscapeButton(made.back());
    box.exec();
    for (size_t i = 0; i < made.size(); ++i)
        if (box.clickedButton() == made[i])
            return static_cast<int>(i);
    return static_cast<int>(made.size()) - 1;
}

Ask::Saving Ask::saveChanges(const QString& name)
{
    const int answer = choose(msg("Save changes?"), msg("%1 was changed. Save the changes?").arg(name),
                              {msg("Save"), msg("Don't save"), msg("Cancel")});
    return answer == 0 ? Saving::kSave : answer == 1 ? Saving::kDiscard : Saving::kCancel;
}

std::vector<std::string> Ask::drawingsToOpen(const std::string& folder)
{
    const Gate::Hold hold{m_gate};
    std::vector<std::string> paths;
    for (const QString& path :
         QFileDialog::getOpenFileNames(&m_parent, msg("Open drawings"), qtPath(folder), drawingFilters()))
        paths.push_back(nativeOf(path));
    return paths;
}

std::string Ask::fileToSave(const QString& title, const std::string& proposal, const QString& filters,
                            const QString& ending)
{
    const Gate::Hold hold{m_gate};
    QFileDialog dialog{&m_parent, title, qtPath(proposal), filters};
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(ending);
    dialog.selectFile(qtPath(proposal));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return nativeOf(dialog.selectedFiles().front());
}

} // namespace desktop
