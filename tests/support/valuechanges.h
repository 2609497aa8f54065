#ifndef VALUECHANGES_H
#define VALUECHANGES_H

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The changes of a signal: time and value, in the words of the dump without blanks and codes; a real
/// number with 12 digits, since tools lose the last ones, and a text decoded, since they have escapes of
/// their own.
using ValueChanges = std::vector<std::pair<long long, std::string>>;

/// What a value change dump says of every signal, by the names of its scopes and its own with points between.
/// @throws std::runtime_error for a word that has no place in a dump
std::map<std::string, ValueChanges> valueChangesOf(std::string_view dump);

#endif
