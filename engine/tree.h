#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace tree {

/// A named hierarchy: a node owns its children, and each child is known by a name of its own among them.
///
/// A node knows neither its name nor its parent. Names are whole keys: there are no paths, and deeper nodes
/// are reached one name at a time. Siblings have no order.
template<typename T>
class Node {
    using Children = std::unordered_map<std::string, std::unique_ptr<Node<T>>>;
    Children children;

public:
    T value; ///< the payload, for callers to read and change

    explicit Node(T value) : value(std::move(value)) {}

    /// Hangs a new node below this one. If a child of that name exists it stays, and the new value is
    /// dropped.
    void addNode(std::string name, T value)
    {
        children.insert({std::move(name), std::make_unique<Node<T>>(std::move(value))});
    }

    /// The direct child of that name, never null; borrowed. Throws `std::out_of_range`
    /// "_Map_base::at" if there is none.
    Node<T>* getNode(const std::string_view& name)
    {
        const auto found = children.find(std::string(name));
        if (found == children.end()) {
            throw std::out_of_range("_Map_base::at"); // what `at` says differs by library
        }
        return found->second.get();
    }

    /// Walks this node and all below it, each node before its children, a child's whole subtree before its
    /// next sibling. `callback` gets the parent, null for this node, and the node. It may give the node that
    /// it is called for children, which are then visited too.
    void visit(std::function<void(Node<T>*, Node<T>*)> callback)
    {
        callback(nullptr, this);
        std::deque<std::pair<Node<T>*, typename Children::iterator>> stack;
        stack.push_back({this, children.begin()});
        while (!stack.empty()) {
            auto& [parent, next] = stack.back();
            if (next == parent->children.end()) {
                stack.pop_back();
                continue;
            }
            Node<T>* child = next->second.get();
            callback(parent, child);
            ++next;
            if (!child->children.empty()) {
                stack.push_back({child, child->children.begin()});
            }
        }
    }
};

} // namespace tree
