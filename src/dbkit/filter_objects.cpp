#include "dbkit/filter_objects.h"

#include "host/ed/selection.h"
#include "host/text.h"

#include <algorithm>

namespace
{

constexpr int kOperator = -4;
constexpr int kClass = 0;
constexpr int kLayer = 8;
constexpr int kExtendedData = -3;
constexpr int kApplication = 1001;

/// A chain of the host's that grows at its end.
class ChainBuilder
{
public:
    resbuf* add(int code)
    {
        resbuf* node = acutNewRb(code);
        if (node == nullptr)
            return nullptr;
        if (m_tail == nullptr)
            m_chain.reset(node);
        else
            m_tail->rbnext = node;
        m_tail = node;
        return node;
    }

    void add(int code, const std::u16string& text)
    {
        if (resbuf* node = add(code))
            node->resval.rstring = acutNewString(text.c_str());
    }

    bool add(const AcGePoint3d& point)
    {
        resbuf* node = add(RT3DPOINT);
        if (node == nullptr)
            return false;
        node->resval.rpoint[0] = point.x;
        node->resval.rpoint[1] = point.y;
        node->resval.rpoint[2] = point.z;
        return true;
    }

    ResbufPtr take() { return std::move(m_chain); }

private:
    ResbufPtr m_chain;
    resbuf* m_tail = nullptr;
};

void join(std::u16string& list, const std::u16string& name)
{
    if (!list.empty())
        list += u',';
    list += name;
}

const char16_t* modeName(PolygonMode mode)
{
    switch (mode)
    {
    case PolygonMode::kCrossing:
        return u"_CP";
    case PolygonMode::kFence:
        return u"_F";
    case PolygonMode::kWindow:
        return u"_WP";
    }
    return nullptr;
}

/// The points as a chain; none when a node cannot be had.
ResbufPtr pointChain(const AcGePoint3dArray& points)
{
    ChainBuilder chain;
    const bool complete =
        std::all_of(points.begin(), points.end(), [&](const auto& point) { return chain.add(point); });
    return complete ? chain.take() : ResbufPtr{};
}

} // namespace

std::vector<std::u16string> FilterObjects::DefaultExclusion()
{
    return {u"VIEWPORT"};
}

void FilterObjects::AddClass(std::u16string_view dxfName)
{
    if (FindInStringArray(m_includedClasses, dxfName, true) < 0)
        m_includedClasses.emplace_back(dxfName);
}

void FilterObjects::AddLayer(const std::u16string& name)
{
    if (m_layers.empty() || m_layers.find(name) == std::u16string::npos)
        join(m_layers, name);
}

void FilterObjects::AddXdataApp(const std::u16string& name)
{
    join(m_applications, name);
}

void FilterObjects::BuildFilter()
{
    m_filter.reset(nullptr);
    if (m_includedClasses.empty() && m_excludedClasses.empty() && m_applications.empty() && m_layers.empty())
        return;

    ChainBuilder chain;
    chain.add(kOperator, u"<and");
    if (!m_includedClasses.empty())
    {
        chain.add(kOperator, u"<or");
        for (const std::u16string& name : m_includedClasses)
            chain.add(kClass, name);
        chain.add(kOperator, u"or>");
    }
    for (const std::u16string& name : m_excludedClasses)
    {
        chain.add(kOperator, u"<not");
        chain.add(kClass, name);
        chain.add(kOperator, u"not>");
    }
    if (!m_applications.empty())
    {
        chain.add(kOperator, u"<or");
        chain.add(kExtendedData);
        chain.add(kApplication, m_applications);
        chain.add(kOperator, u"or>");
    }
    if (!m_layers.empty())
    {
        chain.add(kOperator, u"<or");
        chain.add(kLayer, m_layers);
        chain.add(kOperator, u"or>");
    }
    chain.add(kOperator, u"and>");
    m_filter = chain.take();
}

int FilterObjects::SelectAll()
{
    return Select(u"X", nullptr);
}

int FilterObjects::SelectByPolygon(const AcGePoint3dArray& points, PolygonMode mode)
{
    const char16_t* const name = modeName(mode);
    if (name == nullptr)
        return 0;
    const ResbufPtr chain = pointChain(points);
    return Select(name, chain.get());
}

int FilterObjects::Select(const char16_t* mode, const resbuf* points)
{
    BuildFilter();
    ads_name set{};
    if (acedSSGet(mode, points, nullptr, m_filter.get(), set) != RTNORM)
        return 0;
    const int count = Collect(set);
    acedSSFree(set);
    return count;
}

int FilterObjects::Collect(const ads_name set)
{
    int32_t length = 0;
    if (acedSSLength(set, &length) != RTNORM)
        return 0;
    m_ids.resize(static_cast<size_t>(length));
    for (int32_t index = 0; index < length; ++index)
    {
        ads_name entity{};
        AcDbObjectId& id = m_ids[static_cast<size_t>(index)];
        id = AcDbObjectId::kNull;
        if (acedSSName(set, index, entity) == RTNORM)
            acdbGetObjectId(id, entity);
    }
    return length;
}

void FilterObjects::Reset()
{
    *this = FilterObjects{};
}

int FindInStringArray(const std::vector<std::u16string>& array, std::u16string_view text, bool ignoreCase)
{
    if (text.empty())
        return -1;
    const auto found =
        std::find_if(array.begin(), array.end(),
                     [&](const std::u16string& each) { return ignoreCase ? equalNoCase(each, text) : each == text; });
    return found == array.end() ? -1 : static_cast<int>(found - array.begin());
}
