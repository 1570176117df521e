#include "engine/tree.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

using testing::ElementsAre;
using testing::ThrowsMessage;
using testing::UnorderedElementsAre;

namespace {

using Node = tree::Node<std::string>;

/// The payloads in the order of a walk, each with its parent's: "parent>node".
std::vector<std::string> walk(Node& root)
{
    std::vector<std::string> steps;
    root.visit([&](Node* parent, Node* node) {
        steps.push_back((parent != nullptr ? parent->value : "null") + ">" + node->value);
    });
    return steps;
}

TEST(Tree, IsAPlainType)
{
    EXPECT_FALSE(std::is_polymorphic_v<Node>);
    EXPECT_EQ(sizeof(tree::Node<int*>),
              sizeof(std::unordered_map<std::string, std::unique_ptr<int>>) + sizeof(int*));
}

TEST(Tree, VisitsALoneRootOnceWithoutAParent)
{
    Node root("root");
    EXPECT_THAT(walk(root), ElementsAre("null>root"));
}

TEST(Tree, ReachesAChildByItsName)
{
    Node root("root");
    root.addNode("a", "payload a");
    root.addNode("b", "payload b");
    EXPECT_EQ(root.getNode("a")->value, "payload a");
    EXPECT_EQ(root.getNode("b")->value, "payload b");
}

TEST(Tree, LetsPayloadsBeChangedThroughTheNode)
{
    Node root("root");
    root.addNode("a", "old");
    root.getNode("a")->value = "new";
    EXPECT_EQ(root.getNode("a")->value, "new");
}

TEST(Tree, KeepsTheFirstChildOfANameWithItsPayloadAndSubtree)
{
    tree::Node<std::shared_ptr<int>> root(nullptr);
    const auto first = std::make_shared<int>(1);
    const auto second = std::make_shared<int>(2);
    root.addNode("a", first);
    root.getNode("a")->addNode("below", nullptr);
    root.addNode("a", second);
    EXPECT_EQ(root.getNode("a")->value, first);
    EXPECT_NO_THROW(root.getNode("a")->getNode("below"));
    EXPECT_EQ(second.use_count(), 1) << "the second payload is dropped";
}

TEST(Tree, ReachesDeeperNodesOneNameAtATime)
{
    Node root("root");
    root.addNode("a", "A");
    root.getNode("a")->addNode("b", "B");
    root.getNode("a")->getNode("b")->addNode("c", "C");
    EXPECT_EQ(root.getNode("a")->getNode("b")->getNode("c")->value, "C");
}

TEST(Tree, ThrowsForANameThatIsNoDirectChild)
{
    Node root("root");
    root.addNode("a", "A");
    root.getNode("a")->addNode("b", "B");
    const auto isOutOfRange = ThrowsMessage<std::out_of_range>("_Map_base::at");
    EXPECT_THAT([&] { root.getNode("nobody"); }, isOutOfRange);
    EXPECT_THAT([&] { root.getNode("b"); }, isOutOfRange) << "a grandchild";
    EXPECT_THAT([&] { root.getNode("root"); }, isOutOfRange) << "itself";
    EXPECT_THAT([&] { root.getNode("a")->getNode("b")->getNode("c"); }, isOutOfRange) << "below a leaf";
    EXPECT_THAT(walk(root), ElementsAre("null>root", "root>A", "A>B")) << "unchanged";
}

TEST(Tree, TakesANameAsOneWholeKey)
{
    Node root("root");
    root.addNode("a/b", "slash");
    root.addNode("", "empty");
    root.addNode("a", "A");
    root.getNode("a")->addNode("b", "B");
    EXPECT_EQ(root.getNode("a/b")->value, "slash");
    EXPECT_EQ(root.getNode("")->value, "empty");
    const std::string longer = "a/b and more";
    EXPECT_EQ(root.getNode(std::string_view(longer).substr(0, 3))->value, "slash");
}

TEST(Tree, AllowsOneNameBelowDifferentParents)
{
    Node root("root");
    root.addNode("a", "A");
    root.addNode("b", "B");
    root.getNode("a")->addNode("same", "below A");
    root.getNode("b")->addNode("same", "below B");
    EXPECT_EQ(root.getNode("a")->getNode("same")->value, "below A");
    EXPECT_EQ(root.getNode("b")->getNode("same")->value, "below B");
}

TEST(Tree, VisitsParentsFirstAndWholeSubtreesBeforeTheNextSibling)
{
    Node root("root");
    for (const std::string name : {"a", "b", "c"}) {
        root.addNode(name, name);
        root.getNode(name)->addNode("1", name + "1");
        root.getNode(name)->addNode("2", name + "2");
        root.getNode(name)->getNode("1")->addNode("x", name + "1x");
    }
    const std::vector<std::string> steps = walk(root);
    EXPECT_THAT(steps, UnorderedElementsAre("null>root", "root>a", "a>a1", "a1>a1x", "a>a2", "root>b", "b>b1",
                                            "b1>b1x", "b>b2", "root>c", "c>c1", "c1>c1x", "c>c2"));
    EXPECT_EQ(steps.front(), "null>root");
    const auto at = [&](const std::string& step) {
        return std::find(steps.begin(), steps.end(), step) - steps.begin();
    };
    for (const std::string name : {"a", "b", "c"}) {
        // The four steps below a child follow it at once, the grandchild right behind its parent.
        std::string first = name; // a>a1
        first.append(">").append(name).append("1");
        std::string second = name; // a>a2
        second.append(">").append(name).append("2");
        std::string deepest = name; // a1>a1x
        deepest.append("1>").append(name).append("1x");
        const auto child = at("root>" + name);
        for (const std::string& below : {first, second}) {
            EXPECT_GT(at(below), child);
            EXPECT_LE(at(below), child + 3);
        }
        EXPECT_EQ(at(deepest), at(first) + 1);
    }
}

TEST(Tree, VisitsAChildThatItsParentGainsWhileItIsVisited)
{
    Node root("root");
    root.addNode("a", "A");
    std::vector<std::string> steps;
    root.visit([&](Node* /*parent*/, Node* node) {
        steps.push_back(node->value);
        if (node->value == "A") {
            node->addNode("late", "late");
        }
        if (node->value == "late") {
            node->addNode("later", "later");
        }
    });
    EXPECT_THAT(steps, ElementsAre("root", "A", "late", "later"));
}

TEST(Tree, VisitsAChildThatTheRootGainsWhileItIsVisited)
{
    Node root("root");
    root.visit([](Node* parent, Node* node) {
        if (parent == nullptr) {
            node->addNode("late", "late");
        }
    });
    EXPECT_THAT(walk(root), ElementsAre("null>root", "root>late"));
    Node another("another");
    std::vector<std::string> steps;
    another.visit([&](Node* parent, Node* node) {
        steps.push_back(node->value);
        if (parent == nullptr) {
            node->addNode("late", "late");
        }
    });
    EXPECT_THAT(steps, ElementsAre("another", "late"));
}

TEST(Tree, WalksADeepChainWithoutRecursion)
{
    constexpr int depth = 500;
    tree::Node<int> root(0);
    tree::Node<int>* node = &root;
    for (int i = 1; i <= depth; ++i) {
        node->addNode("next", i);
        node = node->getNode("next");
    }
    // A walk that called itself would take some stack for each level.
    std::set<void*> frames;
    int visited = 0;
    root.visit([&](tree::Node<int>* parent, tree::Node<int>* /*node*/) {
        ++visited;
        if (parent != nullptr) {
            frames.insert(__builtin_frame_address(0));
        }
    });
    EXPECT_EQ(visited, depth + 1);
    EXPECT_EQ(frames.size(), 1U);
}

TEST(Tree, ThrowsForAnEmptyCallback)
{
    Node root("root");
    EXPECT_THROW(root.visit(nullptr), std::bad_function_call);
}

TEST(Tree, LetsACallbacksExceptionOutAndKeepsWhatItChanged)
{
    Node root("root");
    root.addNode("a", "A");
    EXPECT_THAT(
        [&] {
            root.visit([](Node* /*parent*/, Node* node) {
                node->value += "!";
                if (node->value == "A!") {
                    throw std::runtime_error("enough");
                }
            });
        },
        ThrowsMessage<std::runtime_error>("enough"));
    EXPECT_THAT(walk(root), ElementsAre("null>root!", "root!>A!"));
}

TEST(Tree, DestroysItsSubtree)
{
    const auto payload = std::make_shared<int>(0);
    {
        tree::Node<std::shared_ptr<int>> root(payload);
        root.addNode("a", payload);
        root.getNode("a")->addNode("b", payload);
        EXPECT_EQ(payload.use_count(), 4);
    }
    EXPECT_EQ(payload.use_count(), 1);
}

} // namespace
