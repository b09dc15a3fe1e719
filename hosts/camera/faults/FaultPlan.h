// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <limits>
#include <optional>
#include <string>
#include <vector>

// What a FaultyCamera does wrong, and when. Built from code (push rules) or from text.
//
// Text: one rule a line, or several divided by ";". "#" begins a comment. Words are divided by
// blanks. PATTERN is a feature name, in which "*" stands for any characters and "?" for one. MS are
// milliseconds, N is a count of calls.
//
//   seed N                      start of the random numbers of "jitter" (1)
//   latency PATTERN MS          every call takes that long
//   jitter PATTERN MS           every call takes a random time up to that long
//   hang PATTERN MS             as latency, but once unless said otherwise
//   error PATTERN CODE          calls answer CODE (decimal, or hexadecimal with 0x)
//   vanish PATTERN              the feature is not there any more
//   value PATTERN NUMBER        integers, enumerations and booleans read as NUMBER
//   lock PATTERN by NAME        read-only from the next successful write of NAME on
//   mode PATTERN NUMBER         the access mode is NUMBER, sensible or not
//   range PATTERN [min=X] [max=X] [inc=X] [value=X]    parts of numeric records; X may be nan, inf
//   entries PATTERN N           the enumeration record counts N entries
//   text PATTERN unterminated   string records without end; also "empty"
//   long-name NAME              the description gives the feature a name of 10,000 characters
//   long-text NAME              the same for its description
//   disconnect                  the connection is lost; reconnect() brings it back
//
// latency, jitter, hang, error, vanish, value, mode, range, entries, text and disconnect may be
// followed by conditions, in any order:
//   on read|write|mode          only these calls (default: all)
//   after N                     not the first N calls that match
//   once, always, times N       how many of the calls after that (error, hang: once; others:
//                               always; disconnect happens once)
class FaultPlan
{
public:
    enum Kind {
        Latency,
        Jitter,
        Hang,
        Error,
        Vanish,
        Value,
        Lock,
        Mode,
        Range,
        Entries,
        Text,
        LongName,
        LongText,
        Disconnect
    };
    enum Operation : unsigned { OnRead = 1, OnWrite = 2, OnMode = 4, OnAll = 7 };
    static constexpr long kAlways = std::numeric_limits<long>::max();

    struct Rule
    {
        Kind kind = Error;
        std::string pattern = "*";
        unsigned operations = OnAll;
        long after = 0;
        long times = kAlways;
        int milliseconds = 0;
        int code = 0;     // of Error, Mode
        long number = 0;  // of Value, Entries
        std::string word; // of Lock (the feature that locks) and Text
        std::optional<double> minimum, maximum, increment, value; // of Range

        bool matches(const std::string& name) const;
    };

    std::vector<Rule> rules;
    unsigned seed = 1;

    // Nothing, and an English sentence with the line number in *error, for a text that is no plan.
    static std::optional<FaultPlan> parse(const QString& text, QString* error);
};
