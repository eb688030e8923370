#pragma once

#include <string>
#include <utility>

class CWnd;

/// What became of something that the user tried: done, or refused for a reason that can be shown.
class [[nodiscard]] UserAction
{
public:
    static UserAction done() { return {}; }
    static UserAction refused(std::string reason)
    {
        UserAction action;
        action.m_refused = true;
        action.m_reason = std::move(reason);
        return action;
    }

    explicit operator bool() const { return !m_refused; }
    const std::string& reason() const { return m_reason; }

private:
    bool m_refused = false;
    std::string m_reason;
};

enum class UserKey
{
    kEscape,
    kEnter
};

/// The edge or corner by which a dialog is dragged; a corner is its two edges.
enum SizingEdge : unsigned
{
    kLeftEdge = 1,
    kRightEdge = 2,
    kTopEdge = 4,
    kBottomEdge = 8
};
constexpr SizingEdge operator|(SizingEdge a, SizingEdge b)
{
    return static_cast<SizingEdge>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

/// Something the user does to a control, before the control knows.
struct UserMessage
{
    enum Kind
    {
        kLeftButtonDown
    };
    Kind kind;
    CWnd* target;
};
