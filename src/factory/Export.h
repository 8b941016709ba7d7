#pragma once
// Symbols the library exports; everything else stays hidden.
#define VELD5_EXPORT __attribute__((visibility("default")))
