#pragma once

#include <boost/shared_ptr.hpp>

#include <exception>
#include <istream>
#include <string>

/// Opens a file for reading. Throws std::exception with the reason.
boost::shared_ptr<std::istream> openInput(const std::string& path);

/// The text of what ended a read of `stream`, and what it means for the file.
std::string explain(const std::exception& failure, const std::istream& stream);
