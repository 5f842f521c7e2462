#pragma once

/// @brief While it lives, whoever reads a configuration through the common library waits before it has begun, as on a
/// slow disk, until release().
///
/// The program stands in front of the library's readers; link it with HeldReading.cpp.
class HeldReading
{
public:
    HeldReading();
    ~HeldReading();
    HeldReading(const HeldReading &) = delete;
    HeldReading &operator=(const HeldReading &) = delete;

    /// Returns true once somebody stands waiting, false when nobody has come in ten seconds.
    bool awaitReader() const;

    /// Lets the waiting reader, and every later one, go on.
    void release();
};
