#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>

class QKeyEvent;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace desktop
{

/// The line at the bottom on which commands are typed, with what was done above it. Blank and Enter confirm, Escape
/// gives up, Up and Down go through what was typed, Tab completes.
class CommandLine : public QWidget
{
public:
    CommandLine();

    std::function<void(const QString& line)> onConfirmed;
    std::function<void()> onEscape;
    std::function<QStringList(const QString& begin)> completions;
    /// Whether a blank is part of the answer.
    std::function<bool()> takesBlanks;

    void setPrompt(const QString& prompt);
    void append(const QString& text);
    /// A key that was pressed elsewhere in the window is meant for this line.
    void type(QKeyEvent& event);
    /// Shows a few lines of what was done, or many.
    void toggleHistory() { showHistory(!m_isLong); }
    void showHistory(bool isLong);
    QLineEdit& input() { return *m_input; }
    QString history() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool handleKey(const QKeyEvent& event);
    void confirm();
    void complete();
    void recall(int by);
    void showCompletions();
    int heightOfLines(int lines) const;

    QPlainTextEdit* m_history;
    QLabel* m_prompt;
    QLineEdit* m_input;
    QLabel* m_hint;
    QStringList m_typed;
    qsizetype m_recalled = 0;
    QString m_begin; ///< what was typed before Tab went through its completions
    bool m_isLong = false;
};

} // namespace desktop
