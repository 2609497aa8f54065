#ifndef SERVERPROCESS_H
#define SERVERPROCESS_H

#include <QProcess>

namespace Halvorin::LSP {

/// The process of a language server, at the head of a process group of its own. The whole group ends with
/// this object, and with the server; the server ends with the application, however that ends.
class ServerProcess : public QProcess
{
public:
    explicit ServerProcess(QObject* parent);
    /// Kills what still runs, and takes what is left of it off the system's table.
    ~ServerProcess() override;

    /// Starts the server and tells it on which port of this machine to connect. Returns at once, whether or
    /// not the program exists. What it writes to its standard streams later is not kept.
    void startServer(const QString& program, quint16 port);

    /// Kills the server and everything in its group.
    void end();

protected:
    void setupChildProcess() override;

private:
    const qint64 m_application; ///< the number of our own process
    qint64 m_group = 0;
};

} // namespace Halvorin::LSP

#endif
