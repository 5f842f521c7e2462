#pragma once

/// @brief While one lives, an interrupt or a request to end is noted instead of ending the program; the second one ends
/// it. One at a time.
class InterruptSignal
{
public:
    InterruptSignal();
    ~InterruptSignal();
    InterruptSignal(const InterruptSignal &) = delete; // the signals' handling belongs to it
    InterruptSignal &operator=(const InterruptSignal &) = delete;

    /// Whether the program has been asked to end.
    static bool isRaised();
};
