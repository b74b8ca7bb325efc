#pragma once

#include "text/TextCase.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <ranges>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace velmo
{

/**
    Items in the order they were added, found by position (from 1) or by key. Keys are compared
    without regard to case, in which "Ä" and "ä" are one too; an item with an empty key is found by its position only. Items stay where
    they are in memory until they are removed. One thread at a time.
 */
template <typename T>
class KeyedCollection
{
  public:
    KeyedCollection() = default;
    KeyedCollection(KeyedCollection&&) = default;
    KeyedCollection& operator=(KeyedCollection&&) = default;

    /// Appends an item and gives it back; nullptr, and nothing added, when the key is taken.
    T* Add(std::string_view key, T item)
    {
        std::string foldedKey = FoldedCase(key);
        if (!foldedKey.empty() && m_byKey.contains(foldedKey))
        {
            return nullptr;
        }
        m_nodes.push_back(std::make_unique<Node>(Node{std::move(item), std::move(foldedKey)}));
        Node* node = m_nodes.back().get();
        if (!node->foldedKey.empty())
        {
            m_byKey.emplace(node->foldedKey, node);
        }
        return &node->item;
    }

    /// The item at a position from 1 to Count(), else nullptr.
    [[nodiscard]] T* Item(std::size_t position)
    {
        return position >= 1 && position <= Count() ? &m_nodes[position - 1]->item : nullptr;
    }
    [[nodiscard]] const T* Item(std::size_t position) const
    {
        return position >= 1 && position <= Count() ? &m_nodes[position - 1]->item : nullptr;
    }

    /// The item of a key, else nullptr.
    [[nodiscard]] T* Item(std::string_view key)
    {
        const auto found = m_byKey.find(FoldedCase(key));
        return found == m_byKey.end() ? nullptr : &found->second->item;
    }
    [[nodiscard]] const T* Item(std::string_view key) const
    {
        const auto found = m_byKey.find(FoldedCase(key));
        return found == m_byKey.end() ? nullptr : &found->second->item;
    }

    [[nodiscard]] std::size_t Count() const { return m_nodes.size(); }

    /// Removes the item at a position; nothing happens when there is none.
    void Remove(std::size_t position)
    {
        if (position >= 1 && position <= Count())
        {
            const auto node = m_nodes.begin() + static_cast<std::ptrdiff_t>(position - 1);
            m_byKey.erase((*node)->foldedKey);
            m_nodes.erase(node);
        }
    }

    /// Removes the item of a key; nothing happens when there is none. Linear in Count().
    void Remove(std::string_view key)
    {
        const T* wanted = Item(key);
        for (std::size_t position = 1; wanted != nullptr && position <= Count(); ++position)
        {
            if (Item(position) == wanted)
            {
                Remove(position);
                return;
            }
        }
    }

    /// The items in their order, for a range-for.
    [[nodiscard]] auto NewEnum()
    {
        return m_nodes | std::views::transform([](const auto& node) -> T& { return node->item; });
    }
    [[nodiscard]] auto NewEnum() const
    {
        return m_nodes |
               std::views::transform([](const auto& node) -> const T& { return node->item; });
    }

    [[nodiscard]] auto begin() { return NewEnum().begin(); }
    [[nodiscard]] auto end() { return NewEnum().end(); }
    [[nodiscard]] auto begin() const { return NewEnum().begin(); }
    [[nodiscard]] auto end() const { return NewEnum().end(); }

  private:
    struct Node
    {
        T item;
        std::string foldedKey;
    };

    std::deque<std::unique_ptr<Node>> m_nodes;
    std::unordered_map<std::string, Node*> m_byKey;
};

} // namespace velmo
