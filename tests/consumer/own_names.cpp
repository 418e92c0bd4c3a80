// A program's own classes, whose names the library has, too.

#include <memory>
#include <string>

class Track {
public:
    explicit Track(std::string title) : name(std::move(title)) {}
    virtual ~Track();
    virtual int length() const;

    std::string name;
};

class Sequence : public Track {
public:
    using Track::Track;
    ~Sequence() override;
    int length() const override;
};

Track::~Track() = default;
Sequence::~Sequence() = default;

int Track::length() const {
    return static_cast<int>(name.size());
}

int Sequence::length() const {
    return 2 * Track::length();
}

int lengthOfOwnNames() {
    const std::unique_ptr<Track> track = std::make_unique<Track>("title");
    const std::unique_ptr<Track> sequence = std::make_unique<Sequence>("four");
    return track->length() + sequence->length();
}
