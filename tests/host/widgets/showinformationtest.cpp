#include "host/showinformation.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

TEST(ShowInformation, ShowsAMessageBoxUntilItIsClosed)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QApplication application(count, arguments);
    QString shown;
    QTimer::singleShot(0, [&shown] {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box)
            shown = box->windowTitle() + QStringLiteral(": ") + box->text();
        QApplication::closeAllWindows();
    });
    showInformation("Restart to Load Python", "Restart the application");
    EXPECT_EQ(shown, QStringLiteral("Restart to Load Python: Restart the application"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}
