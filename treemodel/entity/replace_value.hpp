#pragma once

/// Stores `value` and returns true, if it differs from what is stored.
template <typename Value>
bool replace_value(Value& stored, const Value& value)
{
    if (value == stored) {
        return false;
    }
    stored = value;
    return true;
}
