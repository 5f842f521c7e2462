#pragma once

#include "Finding.h"
#include "PictureCheck.h"

/// Mistakes in a navigation catalogue as the plugin reads it: @p content is the Base64 text that @p file holds. What is
/// found in the JSON text inside has its place in both.
Findings checkCatalogue(const QString &file, const QByteArray &content);

/// The same for a file that may also be the JSON text from which the Base64 text is made, unless it has the name of the
/// installed catalogue.
Findings checkCatalogueOrText(const QString &file, const QByteArray &content);

/// The icons of the catalogue that none of @p pictures has the name of.
Findings checkIcons(const QString &file, const QByteArray &content, const PictureFiles &pictures);

/// The pages of the catalogue whose controller is none of @p controllers, the registry keys of those that there are.
Findings checkControllers(const QString &file, const QByteArray &content, const QStringList &controllers);
