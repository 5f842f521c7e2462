#pragma once

#include <QIcon>

/// The signs on the buttons, drawn in the colours of the palette at any size.
enum class Symbol { Feed, Repeat, Stop, Record, Open, Play, Pause, Step, Loop, Save, Clear, Add, Warning };

QIcon symbolIcon(Symbol symbol);
