#pragma once

#include "AgentReport.h"
#include "Edits.h"
#include "IconPictures.h"
#include "PageValues.h"
#include "PageWalk.h"

#include <QJsonArray>
#include <QJsonObject>

// How "tavctl run" shows what the client did, part by part.

QJsonArray picturesJson(const QVector<IconPicture> &pictures);
/// Counts them, and lists those that are missing; all when @p isInFull.
void printPictures(const QVector<IconPicture> &pictures, bool isInFull);

QJsonArray deliveriesJson(const QVector<PageDelivery> &deliveries);
/// Sums up their times, or lists them when @p isInFull.
void printDeliveries(const QVector<PageDelivery> &deliveries, bool isInFull);

QJsonArray backendJson(const AgentReport &report);
void printBackend(const AgentReport &report);

/// A page's type and the tables of its values.
QJsonObject pageJson(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page);

/// A document with @p pages, for the caller to add what else share/schemas/pages.schema.json describes.
QJsonObject pagesJson(const QJsonArray &pages);

/// Prints the tables of @p values. Each list is cut after @p mostRows rows with a count of those left out; 0 for no
/// limit. Columns for which the terminal has no room are left out and named.
void printValues(const QVector<PageValue> &values, int mostRows);

QJsonArray editsJson(const QVector<Edit> &edits);
void printEdits(const QVector<Edit> &edits);
