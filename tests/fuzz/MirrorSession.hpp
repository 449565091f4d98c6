#pragma once

#include "SignalTap.hpp"

#include <array>
#include <cstdint>
#include <deque>
#include <embedded/EmbeddedKernel.hpp>
#include <mirror/KernelRunner.hpp>
#include <QStringList>
#include <span>
#include <treemodel/kernel/TreeModel.hpp>

/// A kernel, a mirror and a front end that uses it, all told by bytes what to do.
///
/// Four bytes are an action: an operation of the kernel, a call of the front end, or the order to
/// do the next action not now but inside one of the signals to come. After each action that
/// was not itself made inside a signal, the mirror must keep its rules, and equal the kernel and
/// a fresh mirror of it; after one with actions inside its signals, it must do so upon a refresh.
class MirrorSession
{
public:
    MirrorSession();
    ~MirrorSession();

    /// What went wrong first, with the actions up to it; empty if nothing did.
    QString run(std::span<const std::uint8_t> bytes);

private:
    struct Action
    {
        std::uint8_t verb;
        std::uint8_t kind;
        std::uint8_t first;
        std::uint8_t second;
    };
    struct Interruption
    {
        int signals_to_wait;
        Action action;
    };
    struct Call
    {
        const char* name;
        void (MirrorSession::*make)(const Action&);
    };

    static const std::array<Call, 8> calls;
    static constexpr int first_call_verb = 208;

    static bool is_postponing(const Action& action);
    /// False if the kernel refused it.
    bool make(const Action& action);
    QString run_on_kernel(const Action& action);
    QString call(const Action& action);

    void refresh(const Action& action);
    void clear_and_refresh(const Action& action);
    void select(const Action& action);
    void toggle_connection(const Action& action);
    void read_everything(const Action& action);
    void ask_nonsense(const Action& action);

    void interrupt();
    void settle();
    QString difference();

    EmbeddedKernel m_kernel;
    KernelRunner m_runner{m_kernel};
    TreeModel m_mirror;
    SignalTap m_tap;
    std::deque<Interruption> m_interruptions;
    bool m_is_connected = true;
    bool m_is_current = true; // nothing has kept the mirror from following the kernel
    int m_depth = 0;
    QStringList m_done;
    QString m_wrong;
};
