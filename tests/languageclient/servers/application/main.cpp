#include "languageclient/testclient.h"

#include <QCoreApplication>

// An application with a client: client-application PROGRAM starts the server and runs until it is ended.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    TestClient client;
    client.start(application.arguments().at(1).toStdWString());
    return QCoreApplication::exec();
}
