#pragma once

#include <json/value.h>

#include <string>

/// Parses one JSON object, strictly: valid UTF-8, no NUL, no comments, no duplicate keys, nothing
/// after the object. False, with the reason in `problem`, when `text` is anything else.
bool ParseJsonObject(const std::string& text, Json::Value& object, std::string& problem);
