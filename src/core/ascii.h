// Text regardless of the case of the letters A to Z, the same in every locale.
#pragma once

// Turns a to z into A to Z; every other character stays.
char xtoupper(char c);

// Compares at most `n` characters, letters by their capitals and characters as signed bytes: -1, 0
// or 1. A null text sorts first (-1, also against another null); an `n` of 0 makes any two texts
// equal.
int xstrnicmp(const char* a, const char* b, int n);
