#include "desktop/workspace/working.h"

#include "desktop/language/message.h"

#include <QDialog>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace desktop
{

WorkingBox::WorkingBox(Workspace& workspace, const QString& text)
    : m_hold{workspace.gate()}, m_dialog{std::make_unique<QDialog>(&workspace.window())}
{
    constexpr int kWidth = 360;
    m_dialog->setObjectName("working");
    m_dialog->setModal(true);
    auto* column = new QVBoxLayout{m_dialog.get()};
    auto* label = new QLabel{text};
    auto* bar = new QProgressBar;
    auto* cancel = new QPushButton{msg("Cancel")};
    label->setTextFormat(Qt::PlainText);
    bar->setRange(0, 0);
    bar->setMinimumWidth(kWidth);
    column->addWidget(label);
    column->addWidget(bar);
    column->addWidget(cancel, 0, Qt::AlignRight);
    QObject::connect(cancel, &QPushButton::clicked, m_dialog.get(), &QDialog::reject);
}

WorkingBox::~WorkingBox() = default;

void WorkingBox::run(const std::function<void()>& cancel)
{
    constexpr int kPatience = 300; ///< milliseconds
    QObject::connect(m_dialog.get(), &QDialog::rejected, m_dialog.get(),
                     [this, &cancel]
                     {
                         if (!m_ended)
                             cancel();
                     });
    // Until the dialog is seen the gate alone keeps the user from beginning something else.
    QEventLoop loop;
    QTimer::singleShot(kPatience, m_dialog.get(),
                       [this]
                       {
                           if (!m_ended)
                               m_dialog->show();
                       });
    while (!m_ended)
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

void WorkingBox::end()
{
    m_ended = true;
    m_dialog->hide();
}

} // namespace desktop
