// Readers on threads of their own, a program of its own for the thread sanitizer.

#include "support/EventRecorder.h"
#include "support/Testing.h"

#include <thread>

namespace {

std::string eventsOf(const Bytes& file) {
    Recording recording;
    const auto reader = createVEXAReader(boost::make_shared<TestStream>(file));
    setRecorders(*reader, boost::make_shared<EventRecorder>(recording), recording);
    reader->setErrorHandler(boost::make_shared<KeepingErrorHandler>(recording));
    const std::string failure = failureOf([&] { reader->read(); });
    return recording.text() + failure;
}

TEST(Threads, EightReadersReadAllSamplesAtOnce) {
    std::vector<Bytes> files;
    for (const std::string& name : testDataNames()) {
        files.push_back(testData(name));
    }
    const auto readAll = [&](std::string& told) {
        for (const Bytes& file : files) {
            told += eventsOf(file);
        }
    };
    std::vector<std::string> told(8);
    std::vector<std::thread> threads;
    for (std::string& events : told) {
        threads.emplace_back([&] { readAll(events); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::string expected;
    readAll(expected); // last, so that the threads were the first to come everywhere
    for (const std::string& events : told) {
        EXPECT_TRUE(events == expected);
    }
}

} // namespace
