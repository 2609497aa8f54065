#include "host/showinformation.h"

#include "Python/pythonlog.h"

#include <QApplication>
#include <QMessageBox>

void showInformation(const std::string& title, const std::string& text)
{
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        QMessageBox::information(nullptr, QString::fromStdString(title), QString::fromStdString(text));
    else
        PythonLog::warning(title + ": " + text);
}
