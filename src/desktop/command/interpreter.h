#pragma once

#include "picture/map2d.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace desktop
{

/// A command as the user knows it.
struct UserCommand
{
    QString name;        ///< in capitals, without blanks
    QStringList aliases; ///< other names
    QString says;        ///< what it does, a few words
    std::function<void()> run;
};

/// Reads what is typed on the command line: a command's name, then answers to what the command asks. One command at a
/// time; an empty line repeats the last one, or confirms.
class Interpreter
{
public:
    std::function<void(const QString&)> onEcho; ///< a line for the list of what was done
    std::function<void()> onPromptChanged;

    void add(UserCommand command);
    const std::vector<UserCommand>& commands() const { return m_commands; }

    /// What the user confirmed. Words that are left over after the command has what it wants are taken as the next
    /// line.
    void submit(const QString& line);
    /// A place that the user clicked; false when none was asked for.
    bool takePoint(const picture::Vertex& point);
    /// Gives up the command at hand; false when there is none.
    bool cancel();

    bool isAsking() const { return m_onAnswer != nullptr; }
    /// Whether a blank belongs to the answer and does not confirm it.
    bool takesWholeLine() const { return m_isWholeLine; }
    const QString& prompt() const { return m_prompt; }
    /// Names that begin with what was typed, in order.
    QStringList completions(const QString& begin) const;

    /// For commands: asks for a word, or for the rest of the line. The answer may be empty.
    void ask(const QString& prompt, std::function<void(const QString&)> onAnswer, bool isWholeLine = false);
    /// Asks for a place, clicked or typed as "x,y"; any other word goes to `onWord`.
    void askPoint(const QString& prompt, std::function<void(const picture::Vertex&)> onPoint,
                  std::function<void(const QString&)> onWord = {});
    void echo(const QString& text) const;

private:
    const UserCommand* find(const QString& name) const;
    void start(const QString& name);
    void answer(const QString& word);
    void endQuestion();

    std::vector<UserCommand> m_commands;
    QString m_last;
    QString m_prompt;
    bool m_isWholeLine = false;
    std::function<void(const QString&)> m_onAnswer;
    std::function<void(const picture::Vertex&)> m_onPoint;
};

} // namespace desktop
