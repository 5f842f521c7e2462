#pragma once

#include "AgentReport.h"
#include "Edits.h"
#include "IconPictures.h"
#include "PageSections.h"
#include "PageWalk.h"

#include <QJsonArray>

// How "tavctl run" shows what the client did, part by part.

QJsonArray picturesJson(const QVector<IconPicture> &pictures);
void printPictures(const QVector<IconPicture> &pictures);

QJsonArray deliveriesJson(const QVector<PageDelivery> &deliveries);
void printDeliveries(const QVector<PageDelivery> &deliveries);

QJsonArray backendJson(const AgentReport &report);
void printBackend(const AgentReport &report);

/// A list of objects with "title" and "rows", each row an object of texts by column title.
QJsonArray sectionsJson(const QVector<PageSection> &sections);

/// Each list is cut after @p mostRows rows with a count of those left out; 0 for no limit.
void printSections(const QVector<PageSection> &sections, int mostRows);

QJsonArray editsJson(const QVector<Edit> &edits);
void printEdits(const QVector<Edit> &edits);
