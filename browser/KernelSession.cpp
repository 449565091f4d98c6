#include <browser/KernelSession.hpp>

#include <QCoreApplication>

KernelSession::KernelSession()
{
    m_mirror.connect_to_kesto();
}

KernelSession::~KernelSession()
{
    m_mirror.disconnect_from_kesto();
}

QString KernelSession::select(const QString& words)
{
    if (words.isEmpty() || m_kernel.run_command("select " + words.toStdString())) {
        return {};
    }
    return QCoreApplication::translate(
        "KernelSession", "The model holds nothing to select by \"%1\".")
        .arg(words);
}
