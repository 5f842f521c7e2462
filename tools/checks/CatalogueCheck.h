#pragma once

#include "Finding.h"

/// Mistakes in a navigation catalogue: @p content is the Base64 text that @p file holds. Places and paths are those of
/// the JSON text inside, once it can be read.
Findings checkCatalogue(const QString &file, const QByteArray &content);
