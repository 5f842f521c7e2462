#pragma once

/// @brief A mistake and how tavctl has to tell it. "@" stands for the broken root.
struct Mistake {
    const char *file;
    const char *code;
    const char *place; ///< line and column, in the JSON text; empty when the mistake is in no line
    const char *path;
    const char *problem;
    const char *effect;
    const char *advice;
    bool inBase64 = false; ///< it is one of the Base64 text, and so is its place
};
