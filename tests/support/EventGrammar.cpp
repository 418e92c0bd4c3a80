#include "support/EventGrammar.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_map>

namespace {

void require(bool holds, const char* expectation) {
    if (!holds) {
        throw std::runtime_error(expectation);
    }
}

/// What each event may stand in; . is nothing at all. Events of the content are named by the letter
/// in front of them.
const std::unordered_map<std::string, std::string> surroundings = {
    {"runIn", "."},
    {"Parse", "."},
    {"Structure", ". Parse"},
    {"Partition", "Structure"},
    {"randomIndex", "Structure"},
    {"Stream", ". Parse Partition"},
    {"IndividualItem", "Stream UniversalSet"},
    {"Label", "Stream UniversalSet"},
    {"UniversalSet", "Stream UniversalSet"},
    {"LocalSet", "Stream UniversalSet"},
    {"FixedLengthPack", "Stream UniversalSet"},
    {"VariableLengthPack", "Stream UniversalSet"},
    {"Wrapper", "Stream UniversalSet"},
    {"LocalItem", "LocalSet"},
    {"VariableLengthItem", "VariableLengthPack"},
    {"value", "IndividualItem LocalItem FixedLengthPack VariableLengthItem Wrapper"},
    {"form", "Stream UniversalSet LocalSet VariableLengthPack"},
    {"Metadata", ". Parse Partition"},
    {"primer", "Metadata"},
    {"wants", "Metadata"},
    {"set", "Metadata"},
    {"m", "Metadata"},
    {"IndexTable", ". Parse Partition"},
    {"i", "IndexTable"},
    {"EditUnit", "Stream Partition"},
    {"e", "EditUnit"},
    {"s", "EditUnit"},
    {"p", "EditUnit"},
};

bool contains(const std::string& words, const std::string& word) {
    const std::size_t at = words.find(word);
    const std::size_t end = at + word.size();
    return at != std::string::npos && (at == 0 || words[at - 1] == ' ') &&
           (end == words.size() || words[end] == ' ');
}

class Grammar {
public:
    explicit Grammar(Wants wants) : wants_(wants) {}

    void add(const std::string& line) {
        words_.clear();
        hasPosition_ = false;
        for (std::size_t at = 0, end = 0; at < line.size(); at = end + 1) {
            end = std::min(line.find(' ', at), line.size());
            line[at] == '@' ? place(line.substr(at + 1, end - at - 1))
                            : words_.push_back(line.substr(at, end - at));
        }
        const bool named = words_[0].size() == 1 || words_[0].back() == ':';
        const std::string letter = words_[0].size() == 1 ? words_[0] : "";
        words_.erase(words_.begin(), words_.begin() + (named ? 1 : 0));
        const std::string& event = words_[0];
        if (event.rfind("start", 0) == 0) {
            start(event.substr(5), letter);
        } else if (event.rfind("end", 0) == 0) {
            end(event.substr(3), letter);
        } else if (letter.empty() ? surroundings.count(event) != 0 : letter != "g") {
            requireAround(letter.empty() ? event : letter);
            inner(event);
        }
    }

    void finish() const { require(open_.empty(), "what was begun is ended"); }

private:
    using Number = std::uint64_t;
    struct Element {
        std::string name, key;
        Number start = 0, length = 0, received = 0;
        bool hasValue = false, wanted = true;
        unsigned tagType = 0, lengthType = 0;
    };

    void place(const std::string& position) {
        hasPosition_ = true;
        position_ = static_cast<Number>(std::stoll(position));
    }
    const Element& around() const {
        static const Element nothing{".", {}};
        return open_.empty() ? nothing : open_.back();
    }
    void requireAround(const std::string& event) const {
        require(contains(surroundings.at(event), around().name), "events nest");
    }
    /// The number behind a word of the line, or else 0.
    unsigned numberBehind(const std::string& word) const {
        const auto found = std::find(words_.begin(), words_.end(), word);
        return found == words_.end() ? 0 : static_cast<unsigned>(std::stoul(*std::next(found)));
    }

    void start(const std::string& name, const std::string& letter) {
        if (name == "EditUnit" && around().name == name) {
            open_.pop_back(); // one in which no element is valid has no end
        }
        requireAround(name);
        require(name != "Partition" || !randomIndexSeen_, "no partition follows the random index");
        Element element{name, name == "VariableLengthItem" || words_.size() < 2 ? "" : words_[1]};
        if (name == "Stream" && letter.empty()) {
            next_ = position_;
            form_ = 0;
        } else if (hasPosition_) {
            startKLV(element);
        }
        open_.push_back(element);
    }

    void startKLV(Element& element) {
        const Element& outer = around();
        const bool isItem = element.name == "LocalItem" || element.name == "VariableLengthItem";
        element.start = position_;
        element.hasValue = contains(surroundings.at("value"), element.name);
        element.tagType = numberBehind("tag");
        element.lengthType = numberBehind("length");
        element.wanted = wants_ != Wants::Nothing && words_.back() != "skipped";
        if (element.name != "Label") {
            element.length = std::stoull(words_.at(element.key.empty() ? 1 : 2));
        }
        require(outer.wanted, "what isn't wanted doesn't come");
        require(outer.name == "Stream" || next_ - outer.start < outer.length,
                "what a set holds begins within it");
        const Number name = !isItem                       ? KLVKey::size
                            : element.name == "LocalItem" ? Number{1} << outer.tagType
                                                          : 0;
        const Number length = element.name == "Label" ? 0
                              : isItem && outer.lengthType != 0
                                  ? Number{1} << (outer.lengthType - 1)
                                  : lengthOctets();
        require(position_ == next_ + name + length, "an element begins where the last one ended");
        next_ = position_;
    }

    Number lengthOctets() const {
        require(form_ != 0, "the form comes before the first length");
        return form_ == 1 ? 1 : 1 + (form_ & 0x7F);
    }

    void inner(const std::string& event) {
        if (event == "form" && words_.size() == 2 && words_[1].size() == 2) {
            const unsigned form = static_cast<unsigned>(std::stoul(words_[1], nullptr, 16));
            require(form != form_, "the form is told when it changes");
            form_ = form;
        } else if (event == "value" && hasPosition_) {
            Element& element = open_.back();
            const Number size = std::stoull(words_.at(1));
            const bool isBuffered = words_.back().back() == '*';
            require(element.wanted && (size != 0 || isBuffered),
                    "a value comes where it is wanted");
            require(isBuffered ? size == element.length && element.received == 0
                               : size == std::min<Number>(65536, element.length - element.received),
                    "a value comes whole, or in whole chunks");
            element.received += size;
        }
        randomIndexSeen_ = randomIndexSeen_ || event == "randomIndex";
    }

    void end(const std::string& name, const std::string& letter) {
        const bool aborted = words_.back() == "aborted";
        while (name == "Stream" && !open_.empty() && around().name != name &&
               (letter.empty() ? aborted : around().name == "EditUnit")) {
            open_.pop_back();
        }
        require(around().name == name, "an end has its start");
        const Element element = around();
        open_.pop_back();
        if (!hasPosition_) {
            return;
        }
        if (name == "Stream") {
            require(aborted || position_ == next_, "a stream ends where its last element ended");
            return;
        }
        require(element.key.empty() || element.key == words_.at(1), "an end has its start's key");
        require(!element.hasValue || !element.wanted || element.received == element.length,
                "a value that is wanted comes whole");
        require(position_ == element.start + element.length, "an element is as long as announced");
        next_ = position_;
    }

    Wants wants_;
    std::vector<std::string> words_;
    bool hasPosition_ = false;
    Number position_ = 0;
    std::vector<Element> open_;
    bool randomIndexSeen_ = false;
    unsigned form_ = 0;
    /// Where the next key, tag or length must begin.
    Number next_ = 0;
};

} // namespace

std::string grammarFault(const Lines& lines, Wants wants) {
    Grammar grammar(wants);
    std::string present = "at the end";
    try {
        for (const std::string& line : lines) {
            present = line;
            grammar.add(line);
        }
        present = "at the end";
        grammar.finish();
    } catch (const std::exception& fault) {
        return present + ": " + fault.what();
    }
    return {};
}
