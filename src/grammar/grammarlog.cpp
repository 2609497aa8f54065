#include "grammar/grammarlog.h"

#include "HalvCore/application.h"

namespace Halvorin::TextMate {

void logDiagnostic(QString text)
{
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control)
            character = QLatin1Char('?');
    }
    System::Application::instance().logger().diagnostic("grammar", text.toUtf8().constData());
}

} // namespace Halvorin::TextMate
