#pragma once

/// Length of the IBANs of a country, given by its two capital letters; 0 for a country without.
int ibanLength(char first, char second);
