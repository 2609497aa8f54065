#include "cycle.h"
#include "cyclemachine.h"
#include "cyclemodel.h"

#include <QCoreApplication>

namespace {

class QtScxmlCycle : public AbstractCycleEngine
{
public:
    QtScxmlCycle()
    {
        m_machine.setDataModel(&m_model);
        for (const CycleEvent event : cycleEvents)
            m_events.push_back(QString::fromLatin1(cycleEventNames[static_cast<std::size_t>(event)]));
        m_machine.start();
        QCoreApplication::processEvents();
    }

    void runCycle() override
    {
        for (const QString& event : m_events)
            m_machine.submitEvent(event);
        QCoreApplication::processEvents(); // the machine takes them all in one turn
    }

    int entered() const override { return m_model.entered; }

private:
    CycleModel m_model;
    CycleMachine m_machine;
    std::vector<QString> m_events;
};

} // namespace

std::unique_ptr<AbstractCycleEngine> qtScxmlCycle()
{
    return std::make_unique<QtScxmlCycle>();
}
