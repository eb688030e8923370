#include "desktop/command/command_line.h"

#include "desktop/language/message.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace desktop
{

namespace
{

constexpr int kFewLines = 2;
constexpr int kManyLines = 16;
constexpr int kMostLines = 5000;
constexpr qsizetype kMostTyped = 200;

} // namespace

CommandLine::CommandLine()
    : m_history{new QPlainTextEdit}, m_prompt{new QLabel}, m_input{new QLineEdit}, m_hint{new QLabel}
{
    setObjectName("commandLine");
    auto* column = new QVBoxLayout{this};
    column->setContentsMargins(4, 2, 4, 2);
    column->setSpacing(2);
    m_history->setObjectName("commandHistory");
    m_history->setReadOnly(true);
    m_history->setMaximumBlockCount(kMostLines);
    m_history->setFrameShape(QFrame::NoFrame);
    m_history->setFixedHeight(heightOfLines(kFewLines));
    m_input->setObjectName("commandInput");
    m_input->setFrame(false);
    m_input->installEventFilter(this);
    m_prompt->setTextFormat(Qt::PlainText);
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->setForegroundRole(QPalette::PlaceholderText);
    auto* row = new QHBoxLayout;
    row->addWidget(m_prompt);
    row->addWidget(m_input, 1);
    row->addWidget(m_hint);
    column->addWidget(m_history);
    column->addLayout(row);
    connect(m_input, &QLineEdit::textEdited, this,
            [this]
            {
                m_begin.clear();
                showCompletions();
            });
    setPrompt({});
}

int CommandLine::heightOfLines(int lines) const
{
    return m_history->fontMetrics().lineSpacing() * lines +
           2 * static_cast<int>(m_history->document()->documentMargin());
}

QString CommandLine::history() const
{
    return m_history->toPlainText();
}

void CommandLine::setPrompt(const QString& prompt)
{
    m_prompt->setText(prompt.isEmpty() ? msg("Command:") : prompt);
}

void CommandLine::append(const QString& text)
{
    m_history->appendPlainText(text);
}

void CommandLine::showHistory(bool isLong)
{
    m_isLong = isLong;
    m_history->setFixedHeight(heightOfLines(m_isLong ? kManyLines : kFewLines));
}

void CommandLine::type(QKeyEvent& event)
{
    m_input->setFocus();
    if (!handleKey(event))
    {
        m_input->insert(event.text());
        m_begin.clear();
        showCompletions();
    }
}

bool CommandLine::eventFilter(QObject* watched, QEvent* event)
{
    return event->type() == QEvent::KeyPress ? handleKey(*static_cast<QKeyEvent*>(event))
                                             : QWidget::eventFilter(watched, event);
}

bool CommandLine::handleKey(const QKeyEvent& event)
{
    switch (event.key())
    {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        confirm();
        return true;
    case Qt::Key_Space:
        if (takesBlanks && takesBlanks())
            return false;
        confirm();
        return true;
    case Qt::Key_Escape:
        m_input->clear();
        showCompletions();
        if (onEscape)
            onEscape();
        return true;
    case Qt::Key_Tab:
        complete();
        return true;
    case Qt::Key_Up:
        recall(-1);
        return true;
    case Qt::Key_Down:
        recall(1);
        return true;
    default:
        return false;
    }
}

void CommandLine::confirm()
{
    const QString line = m_input->text();
    m_input->clear();
    m_begin.clear();
    showCompletions();
    if (!line.trimmed().isEmpty())
    {
        m_typed.removeAll(line);
        m_typed.append(line);
        if (m_typed.size() > kMostTyped)
            m_typed.removeFirst();
    }
    m_recalled = m_typed.size();
    if (onConfirmed)
        onConfirmed(line);
}

void CommandLine::recall(int by)
{
    const qsizetype at = m_recalled + by;
    if (at < 0 || at > m_typed.size())
        return;
    m_recalled = at;
    m_input->setText(at < m_typed.size() ? m_typed[at] : QString{});
}

/// Each Tab goes to the next name that begins with what was typed.
void CommandLine::complete()
{
    if (m_begin.isEmpty())
        m_begin = m_input->text();
    const QStringList names = completions ? completions(m_begin) : QStringList{};
    if (names.isEmpty())
        return;
    const qsizetype at = names.indexOf(m_input->text());
    m_input->setText(names[(at + 1) % names.size()]);
}

void CommandLine::showCompletions()
{
    constexpr qsizetype kMost = 8;
    const QStringList names = completions ? completions(m_input->text()) : QStringList{};
    m_hint->setText(names.mid(0, kMost).join("  ") + (names.size() > kMost ? " …" : ""));
}

} // namespace desktop
