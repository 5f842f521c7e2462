#pragma once

#include <QString>

/// The name of the calling thread: "gui" for the application's, "thread" for one without a name.
QString currentThreadName();
