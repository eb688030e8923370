#pragma once

#include "host/db/resbuf.h"

#include <string>

/// A chain of result buffers of the module's own making, with private copies of its texts; freed with the object. The
/// host reads it (`object->setXData(chain.head())`) and never takes it.
class CResbuf
{
public:
    /// One node with a text.
    CResbuf(const std::u16string& text, int code);
    /// The nodes of `first`, then those of `second`; either may be empty, and both stay as they are.
    CResbuf(const CResbuf& first, const CResbuf& second);
    CResbuf(const CResbuf& other);
    CResbuf& operator=(const CResbuf& other);
    /// Copies of the nodes of a chain; a null chain gives an empty one.
    explicit CResbuf(const resbuf* chain) { Append(chain); }
    ~CResbuf() { Free(); }

    const resbuf* head() const { return m_head; }

private:
    void Append(const resbuf* chain);
    void Link(resbuf* node);
    void Free();

    resbuf* m_head = nullptr;
    resbuf* m_tail = nullptr;
};
