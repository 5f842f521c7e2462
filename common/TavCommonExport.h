#pragma once

/// @file
/// Marks what the common library shows to the other binaries of the client; everything else in it is hidden.

#define TAV_COMMON_EXPORT __attribute__((visibility("default")))
