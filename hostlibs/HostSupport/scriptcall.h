#ifndef HOSTSUPPORT_SCRIPTCALL_H
#define HOSTSUPPORT_SCRIPTCALL_H

#include "HostSupport/hostsupportexport.h"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

/// What a handler of a script function is given: it reads its arguments by index, stores its results, and
/// calls finish() last. It holds the shared block while it runs.
///
///     void handler(ScriptArguments& arguments, ScriptResults& results, ScriptSharedBlock& block)
///     {
///         const ScriptSharedBlockHold hold(block);
///         char** slots = results.allocateStrings(1);
///         slots[0] = strdup(arguments.text(0));
///         results.finish();
///     }

/// Type codes of the host.
enum class ScriptArgumentType : int
{
    string = 1,
    number = 3,
    none = 4, // of a function that takes no argument
};

enum class ScriptResultType : int
{
    boolean = 1,
    strings = 12,
    none = 16,
};

/// The arguments of one call. They live as long as the call.
class HOSTSUPPORT_EXPORT ScriptArguments
{
public:
    explicit ScriptArguments(std::vector<std::string> texts) : m_texts(std::move(texts)) {}

    /// How many values stand in a slot: 0 for an argument that was not given.
    int count(std::size_t slot) const { return slot < m_texts.size() ? 1 : 0; }

    /// The narrow text of an argument; empty when it was not given.
    const char* text(std::size_t slot) const { return slot < m_texts.size() ? m_texts[slot].c_str() : ""; }

private:
    std::vector<std::string> m_texts;
};

/// Takes the results of one call.
class HOSTSUPPORT_EXPORT ScriptResults
{
public:
    ScriptResults() = default;
    ScriptResults(const ScriptResults&) = delete;
    ScriptResults& operator=(const ScriptResults&) = delete;
    ~ScriptResults();

    /// Slots for so many strings, null at first; an earlier allocation is given up. The handler stores
    /// copies made with strdup, which the host frees.
    char** allocateStrings(std::size_t count);

    /// The byte of a boolean result.
    unsigned char* booleanSlot() { return &m_boolean; }

    /// The last call of every handler.
    void finish() { m_finished = true; }

    bool isFinished() const { return m_finished; }
    bool boolean() const { return m_boolean != 0; }

    /// Copies of the strings; a slot that was left null is empty.
    std::vector<std::string> strings() const;

private:
    void freeStrings();

    std::vector<char*> m_strings;
    unsigned char m_boolean = 0;
    bool m_finished = false;
};

/// State of the host that several may hold. It starts with one owner; the last one to let go destroys it.
class HOSTSUPPORT_EXPORT ScriptSharedBlock
{
public:
    /// A block with its first owner. `state` is released with the block.
    static ScriptSharedBlock* create(std::shared_ptr<void> state = nullptr);

    ScriptSharedBlock(const ScriptSharedBlock&) = delete;
    ScriptSharedBlock& operator=(const ScriptSharedBlock&) = delete;

    void retain() { ++m_references; }
    void release();
    int references() const { return m_references; }

private:
    explicit ScriptSharedBlock(std::shared_ptr<void> state) : m_state(std::move(state)) {}
    ~ScriptSharedBlock() = default;

    std::shared_ptr<void> m_state;
    std::atomic<int> m_references = 1;
};

/// Owns a share of a block from entry to every way out.
class ScriptSharedBlockHold
{
public:
    explicit ScriptSharedBlockHold(ScriptSharedBlock& block) : m_block(block) { m_block.retain(); }
    ScriptSharedBlockHold(const ScriptSharedBlockHold&) = delete;
    ScriptSharedBlockHold& operator=(const ScriptSharedBlockHold&) = delete;
    ~ScriptSharedBlockHold() { m_block.release(); }

private:
    ScriptSharedBlock& m_block;
};

using ScriptFunctionHandler = void (*)(ScriptArguments&, ScriptResults&, ScriptSharedBlock&);
using ScriptCommandHandler = void (*)();
using HookHandler = void (*)();

#endif
