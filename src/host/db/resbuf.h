#pragma once

#include "store/object_id.h"

#include <cstdint>

/// An entity name of the user-interaction calls: an object's record, or a selection set's number.
using ads_name = int64_t[2];
using ads_point = double[3];

/// Codes of results and of untyped values.
constexpr int RTNORM = 5100;
constexpr int RTERROR = -5001;
constexpr int RTCAN = -5002;
constexpr int RTSHORT = 5003;
constexpr int RTSTR = 5005;
constexpr int RT3DPOINT = 5009;
constexpr int RTREAL = 5001;
constexpr int RTLONG = 5010;
constexpr int RTNONE = 5000;

/// The value of a result buffer: 24 bytes, a string pointer, a number, a point or an entity name by group code.
union ads_u_val
{
    double rreal;
    double rpoint[3];
    int16_t rint;
    char16_t* rstring;
    int64_t rlname[2];
    int32_t rlong;
};

/// One node of a chain of tagged values. A chain made by the host (`acutNewRb`, `xData`, ...) is released with
/// `acutRelRb`; a chain made by the caller belongs to the caller.
struct resbuf
{
    resbuf* rbnext = nullptr;
    int16_t restype = 0;
    ads_u_val resval{};
};

/// Whether a group code's value is a string that its node owns: -4, RTSTR, 0 to 9, 100, 102, 105, 300 to 339,
/// 999 to 1009.
bool isStringCode(int restype);

/// A new node of the host's, without value; null when the type is unknown.
resbuf* acutNewRb(int type);
/// Releases a whole chain of the host's; RTNORM.
int acutRelRb(resbuf* chain);
/// A copy of `text` that the host's release calls free.
char16_t* acutNewString(const char16_t* text);
void acutDelString(char16_t*& text);

/// Owns a chain of the host's and releases it.
class ResbufPtr
{
public:
    ResbufPtr() = default;
    explicit ResbufPtr(resbuf* chain) : m_chain{chain} {}
    ResbufPtr(ResbufPtr&& other) noexcept : m_chain{other.release()} {}
    ResbufPtr& operator=(ResbufPtr&& other) noexcept
    {
        if (this != &other)
            reset(other.release());
        return *this;
    }
    ~ResbufPtr() { reset(nullptr); }

    resbuf* get() const { return m_chain; }
    resbuf* operator->() const { return m_chain; }
    explicit operator bool() const { return m_chain != nullptr; }
    resbuf* release()
    {
        resbuf* chain = m_chain;
        m_chain = nullptr;
        return chain;
    }
    void reset(resbuf* chain)
    {
        if (m_chain != nullptr)
            acutRelRb(m_chain);
        m_chain = chain;
    }

private:
    resbuf* m_chain = nullptr;
};
