#ifndef CHARTTEXT_H
#define CHARTTEXT_H

#include <cstddef>
#include <string>

/// The definition of a device as people write them, only larger: states in groups, each with two transitions,
/// a condition and actions of a few statements with quotes, line ends and a remark that is not plain ASCII.
std::string chartOfTransitions(std::size_t transitions);

/// The same with as many transitions as make at least so many bytes.
std::string chartOfSize(std::size_t bytes);

#endif
