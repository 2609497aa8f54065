#ifndef CYCLEMODEL_H
#define CYCLEMODEL_H

#include <QScxmlCppDataModel>

/// What the scripts of cyclemachine.scxml work on.
class CycleModel : public QScxmlCppDataModel
{
    Q_OBJECT
    Q_SCXML_DATAMODEL

public:
    int entered = 0;
    int left = 0;
    int visits = 0;
};

#endif
