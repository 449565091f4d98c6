#pragma once

#include <stdexcept>

/// Why a file cannot be imported. The text ends the sentence that the user reads:
/// "it holds no geometry".
class ImportError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
