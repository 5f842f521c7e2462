#pragma once

#include "PageSections.h"

/// What the models behind each page hold now; in one file per area of the navigation.
namespace AreaPages
{
QVector<PageSection> hostPage();

QVector<PageSection> hardeningPage();
QVector<PageSection> baselinePage();

QVector<PageSection> staticMeasurementPage();
QVector<PageSection> dynamicMeasurementPage();

QVector<PageSection> principalPage();
QVector<PageSection> objectPage();
QVector<PageSection> principalAddPage();
QVector<PageSection> objectAddPage();

QVector<PageSection> selfProtectPage();
QVector<PageSection> processProtectPage();
QVector<PageSection> kernelProtectPage();
QVector<PageSection> directoryPage();

QVector<PageSection> auditPage();
}
