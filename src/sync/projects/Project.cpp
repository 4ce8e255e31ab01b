#include "sync/projects/Project.h"

#include <sstream>

#include "foundation/texts/Numbers.h"
#include "foundation/xml/XmlDocument.h"
#include "sync/projects/ProjectStatusText.h"

namespace orv {

namespace {

std::optional<quelm::Value> copyOf(const quelm::Value* value) {
    return value ? std::optional(*value) : std::nullopt;
}

}  // namespace

std::optional<quelm::Value> Project::objectForKey(std::string_view key) const {
    if (!answer_) return copyOf(dictionary_.find(key));
    if (key == projectkeys::ownedByMe.name) return answer_->ownedByMe;
    if (key == projectkeys::status.name) return statusText();
    const auto text = answer_->attributes.find(key);
    return text ? std::optional<quelm::Value>(*text) : std::nullopt;
}

quelm::Dictionary Project::dictionary() const {
    if (!answer_) return dictionary_;
    const AttributeRow& attributes = answer_->attributes;
    std::vector<quelm::DictionaryEntry> entries;
    entries.reserve(attributes.size() + 2);
    for (std::size_t i = 0; i < attributes.size(); ++i)
        entries.push_back({attributes.name(i), attributes.text(i)});
    entries.push_back({projectkeys::ownedByMe.name, answer_->ownedByMe});
    entries.push_back({projectkeys::status.name, statusText()});
    return quelm::Dictionary(std::move(entries));
}

quelm::Dictionary& Project::ownDictionary() {
    if (answer_) setDictionary(dictionary());
    return dictionary_;
}

void Project::setDictionary(quelm::Dictionary dictionary) {
    dictionary_ = std::move(dictionary);
    answer_.reset();
}

void Project::setObject(quelm::Value object, std::string_view key) {
    ownDictionary().set(key, std::move(object));
}

bool Project::operator==(const Project& other) const {
    if (answer_ && answer_ == other.answer_) return true;
    return dictionary() == other.dictionary();
}

std::int64_t Project::countedFiles(ProjectListKind kind) const {
    return kind == ProjectListKind::Subscribed ? syncedFiles() : totalFiles();
}

std::int64_t Project::countedBytes(ProjectListKind kind) const {
    return kind == ProjectListKind::Subscribed ? syncedSize() : totalSize();
}

std::string Project::statusText() const {
    return ProjectStatusText({.files = countedFiles(answer_->kind),
                              .bytes = countedBytes(answer_->kind),
                              .outOfQuota = outOfQuota(),
                              .partial = partial()});
}

std::string Project::text(const ProjectKey& key) const {
    const auto value = objectForKey(key.name);
    const std::string* text = value ? value->asString() : nullptr;
    return text ? *text : std::string();
}

std::int64_t Project::number(const ProjectKey& key) const {
    if (answer_) return quelm::LeadingInteger(answer_->attributes.find(key.name).value_or(""));
    const quelm::Value* value = dictionary_.find(key.name);
    const std::int64_t* integer = value ? value->asInteger() : nullptr;
    return integer ? *integer : quelm::LeadingInteger(text(key));
}

bool Project::flag(const ProjectKey& key) const {
    const auto value = objectForKey(key.name);
    if (const bool* boolean = value ? value->asBoolean() : nullptr) return *boolean;
    return quelm::IsTrueText(text(key)) || number(key) != 0;
}

std::optional<std::string> Project::projectLoaderSourcePath() const {
    if (!shouldUseProjectLoader()) return std::nullopt;
    return text(projectkeys::projectLoaderSourcePath);
}

void Project::setProjectLoaderSourcePath(const std::optional<std::string>& path) {
    const char* const key = projectkeys::projectLoaderSourcePath.name;
    if (path) {
        setObject(*path, key);
    } else {
        ownDictionary().erase(key);
    }
}

bool Project::shouldUseProjectLoader() const {
    return objectForKey(projectkeys::projectLoaderSourcePath.name).has_value();
}

std::string Project::partialSubscribePayload() const {
    const auto value = objectForKey(projectkeys::partialSubscriptionXML.name);
    const quelm::Data* data = value ? value->asData() : nullptr;
    return data ? data->bytes : std::string();
}

std::unique_ptr<pugi::xml_document> Project::partialsubscribeXML() const {
    return quelm::ParseXml(partialSubscribePayload()).document;
}

void Project::setPartialSubscribeXML(const pugi::xml_document* document) {
    const char* const key = projectkeys::partialSubscriptionXML.name;
    if (!document) return ownDictionary().erase(key);
    std::ostringstream text;
    document->save(text, "    ", pugi::format_indent, pugi::encoding_utf8);
    setObject(quelm::Data{text.str()}, key);
}

}  // namespace orv
