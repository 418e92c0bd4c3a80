#pragma once

#include "klv/streams.h"

#include <vexa/klv/Locator.h>

#include <istream>

inline namespace vexa_toolkit {

/// The position of an input stream, as it was when last asked.
class InputLocator : public Locator {
public:
    ~InputLocator() override;

    const std::streampos& getPosition() const override { return position_; }

    /// Asks the stream, also at its end; the end-of-file bit stays as it is.
    void update(std::istream& stream);

private:
    std::streampos position_ = klvutil::noPosition;
};

} // namespace vexa_toolkit
