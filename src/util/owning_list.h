#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

/// An ordered list that owns its elements: they are appended at the tail, keep their addresses, and die with the list
/// or when it is emptied.
template <class T>
class OwningList
{
    using Elements = std::vector<std::unique_ptr<T>>;

    template <class Base, class Element>
    class Iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = Element*;
        using reference = Element&;

        Iterator() = default;
        explicit Iterator(Base base) : m_base(base) {}
        Element& operator*() const { return **m_base; }
        Element* operator->() const { return m_base->get(); }
        Iterator& operator++()
        {
            ++m_base;
            return *this;
        }
        Iterator operator++(int) { return Iterator(m_base++); }
        bool operator==(const Iterator& other) const = default;

    private:
        Base m_base{};
    };

public:
    using value_type = T;
    using iterator = Iterator<typename Elements::iterator, T>;
    using const_iterator = Iterator<typename Elements::const_iterator, const T>;

    /// Makes an element at the tail.
    template <class... Arguments>
    T& append(Arguments&&... arguments)
    {
        return *m_elements.emplace_back(std::make_unique<T>(std::forward<Arguments>(arguments)...));
    }

    /// Deletes every element.
    void clear() { m_elements.clear(); }

    size_t size() const { return m_elements.size(); }
    bool empty() const { return m_elements.empty(); }
    T& operator[](size_t index) { return *m_elements[index]; }
    const T& operator[](size_t index) const { return *m_elements[index]; }

    iterator begin() { return iterator(m_elements.begin()); }
    iterator end() { return iterator(m_elements.end()); }
    const_iterator begin() const { return const_iterator(m_elements.begin()); }
    const_iterator end() const { return const_iterator(m_elements.end()); }

private:
    Elements m_elements;
};
