// The arithmetic of plain_rewriting.h, step by step like the rest of it: numbers as text and fractions.
#pragma once

#include "framework/text/text.h"

namespace sumlet {

bool Has(const String& text, const String& part);
String ReplaceWhileThere(String text, const String& old, const String& replacement);

// A value as it goes back into the text: ten places, no closing point.
String SignedText(double value);
String UnsignedText(double value);

String CleanupNumber(const String& text);
double Quotient(double a, double b);
double Remainder(double a, double b);
String DecimalToFraction(double value);
String FractionToDecimal(const String& argument);

}  // namespace sumlet
