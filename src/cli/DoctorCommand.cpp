#include "Commands.h"

#include "cli/Columns.h"
#include "cli/Doctor.h"
#include "cli/ExitStatus.h"
#include "cli/Terminal.h"

#include <algorithm>
#include <iostream>

namespace vexmoor {

using Json = nlohmann::ordered_json;

namespace {

std::vector<DoctorTopic> allTopics(DoctorContext& context) {
    std::vector<DoctorTopic> topics;
    topics.push_back(doctorVersions(context));
    topics.push_back(doctorSession(context));
    topics.push_back(doctorTile(context));
    topics.push_back(doctorServices(context));
    topics.push_back(doctorKeys(context));
    topics.push_back(doctorBins(context));
    topics.push_back(doctorRecords(context));
    return topics;
}

void print(const std::vector<DoctorTopic>& topics) {
    std::size_t width = 0;
    for (const auto& topic : topics)
        for (const auto& line : topic.lines)
            width = std::max(width, characters(line.label));
    for (const auto& topic : topics) {
        std::cout << topic.title << "\n";
        for (const auto& [label, finding] : topic.lines)
            std::cout << "  " << leftAligned(label, width) << "  " << printable(finding) << "\n";
    }
}

} // namespace

int runDoctor(const Invocation& invocation) {
    auto context = DoctorContext::ofProcess();
    const auto topics = allTopics(context);
    if (!invocation.json) {
        print(topics);
        return kAllDone;
    }
    Json json;
    for (const auto& topic : topics)
        json[topic.key] = topic.json;
    std::cout << json.dump(2) << "\n";
    return kAllDone;
}

} // namespace vexmoor
