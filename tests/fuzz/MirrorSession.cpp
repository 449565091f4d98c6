#include "MirrorSession.hpp"

#include "MirrorInvariants.hpp"

#include <algorithm>
#include <limits>
#include <mirror/MirrorHistory.hpp>
#include <QCoreApplication>
#include <QEvent>
#include <support/MirrorText.hpp>
#include <support/RecordText.hpp>

namespace {

QString first_difference(const QStringList& actual, const QStringList& expected)
{
    const auto [ours, theirs] =
        std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    if (ours == actual.end() && theirs == expected.end()) {
        return {};
    }
    return QStringLiteral("has \"%1\" where a fresh mirror has \"%2\"")
        .arg(ours == actual.end() ? QStringLiteral("nothing") : *ours,
            theirs == expected.end() ? QStringLiteral("nothing") : *theirs);
}

} // namespace

const std::array<MirrorSession::Call, 8> MirrorSession::calls{{
    {"postpone", nullptr},
    {"postpone", nullptr},
    {"postpone", nullptr},
    {"refresh", &MirrorSession::refresh},
    {"clear and refresh", &MirrorSession::clear_and_refresh},
    {"select", &MirrorSession::select},
    {"read everything", &MirrorSession::read_everything},
    {"connect or disconnect", &MirrorSession::toggle_connection},
}};

MirrorSession::MirrorSession()
    : m_tap(m_mirror, [this] { interrupt(); })
{
    m_mirror.connect_to_kesto();
}

MirrorSession::~MirrorSession()
{
    m_interruptions.clear();
    m_mirror.disconnect_from_kesto();
}

bool MirrorSession::is_postponing(const Action& action)
{
    return action.verb >= first_call_verb && !calls[action.verb % calls.size()].make;
}

QString MirrorSession::run(std::span<const std::uint8_t> bytes)
{
    int wait = -1;
    for (; bytes.size() >= 4; bytes = bytes.subspan(4)) {
        const Action action{bytes[0], bytes[1], bytes[2], bytes[3]};
        if (is_postponing(action)) {
            wait = action.kind % 64;
        } else if (wait >= 0) {
            m_interruptions.push_back({wait, action});
            wait = -1;
        } else if (make(action)) {
            settle();
        }
        if (!m_wrong.isEmpty()) {
            return m_done.join('\n') + "\nThe mirror: " + m_wrong;
        }
    }
    return {};
}

bool MirrorSession::make(const Action& action)
{
    const qsizetype line = m_done.size();
    const QString indent(qsizetype(2) * m_depth, ' ');
    m_done << indent + "...";
    ++m_depth;
    const QString done = action.verb < first_call_verb ? run_on_kernel(action) : call(action);
    --m_depth;
    m_done[line] = indent + (done.isEmpty() ? QStringLiteral("refused") : done);
    return !done.isEmpty();
}

QString MirrorSession::run_on_kernel(const Action& action)
{
    QString done = m_runner.run({action.verb, action.kind, action.first, action.second});
    m_is_current = m_is_current && m_is_connected;
    return done;
}

QString MirrorSession::call(const Action& action)
{
    const Call& call = calls[action.verb % calls.size()];
    (this->*call.make)(action);
    return QLatin1String(call.name);
}

void MirrorSession::refresh(const Action& /*action*/)
{
    m_is_current = true; // unless it is interrupted
    m_mirror.refresh_model(false);
}

void MirrorSession::clear_and_refresh(const Action& /*action*/)
{
    m_is_current = true;
    m_mirror.refresh_model(true);
}

void MirrorSession::select(const Action& action)
{
    const std::vector<TreeData*> records = all_records(m_mirror);
    std::vector<TreeData*> chosen;
    for (std::size_t i = action.first; i < records.size(); i += 1 + action.second) {
        chosen.push_back(records[i]);
    }
    if (action.kind % 8 == 0) {
        chosen.push_back(nullptr);
    }
    m_mirror.select_entities(chosen, action.kind % 2);
}

void MirrorSession::toggle_connection(const Action& action)
{
    m_is_connected = !m_is_connected;
    if (m_is_connected) {
        m_mirror.connect_to_kesto();
        refresh(action);
    } else {
        m_mirror.disconnect_from_kesto();
    }
}

void MirrorSession::read_everything(const Action& action)
{
    mirror_text(m_mirror);
    ask_nonsense(action);
}

void MirrorSession::ask_nonsense(const Action& action)
{
    const int id = action.kind % 2 ? std::numeric_limits<int>::max() : -1;
    const auto no_type = TreeGeometryData::GeometryType(5 + action.first);
    const bool finds = m_mirror.find_geometry(no_type, 1) || !m_mirror.geometry(no_type).empty() ||
                       m_mirror.find_group(id) || m_mirror.find_cfd_bc(id) ||
                       m_mirror.find_material(id) || m_mirror.find_sizing_source(id) ||
                       m_mirror.find_boundary_layer(id) ||
                       !m_mirror.find_geometry_children(nullptr).empty() ||
                       !m_mirror.find_geometry_parents(nullptr).empty() ||
                       !m_mirror.find_group_children(nullptr).empty() ||
                       !m_mirror.find_groups_for_child(nullptr).empty() ||
                       !m_mirror.find_mesh_data(nullptr).empty() ||
                       !m_mirror.find_fea_from_exodus(nullptr).empty() ||
                       !m_mirror.find_exodus_from_cfd(nullptr).empty();
    if (finds) {
        m_wrong = QStringLiteral("finds what is not there");
    }
}

// What is done here is told by signals of its own, which may be interrupted in turn.
void MirrorSession::interrupt()
{
    if (m_interruptions.empty() || m_interruptions.front().signals_to_wait-- > 0) {
        return;
    }
    const Action action = m_interruptions.front().action;
    m_interruptions.pop_front();
    make(action);
    m_is_current = false;
}

void MirrorSession::settle()
{
    // Until then a replaced boundary condition shows in the links of its sets.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (m_wrong.isEmpty()) {
        m_wrong = broken_rule(m_mirror);
    }
    if (!m_is_current && m_is_connected) {
        const auto waiting = std::exchange(m_interruptions, {});
        m_mirror.refresh_model(false);
        m_interruptions = waiting;
        m_is_current = true;
    }
    if (m_is_current && m_wrong.isEmpty()) {
        m_wrong = difference();
    }
}

QString MirrorSession::difference()
{
    TreeModel fresh;
    fresh.refresh_model(false);
    const QString from_fresh = first_difference(
        without_history(mirror_text(m_mirror)), without_history(mirror_text(fresh)));
    return from_fresh.isEmpty() ? difference_from_kernel(m_mirror) : from_fresh;
}
