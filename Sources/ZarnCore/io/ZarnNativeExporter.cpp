// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnNativeExporter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/native/ScoreFields.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/clip/ZarnClip.h>

#include <filesystem/FileHandle.h>

namespace zarn::io {

namespace {

/// Writes a document by `write(writer)`.
template <class Write>
void fill(rapidjson::StringBuffer &buffer, const ScoreModel &model, Write write)
{
    try {
        if (auto misfit = native::findMisfit(model); !misfit.reason.empty())
            throw misfit;
        native::DocumentWriter writer(buffer);
        write(writer);
        buffer.Put('\n');
    } catch (const native::Misfit &misfit) {
        ZARN_RAISE_IN("zarn::io::NativeExporter::write",
                      misfit.pointer + ": cannot be saved: " + misfit.reason);
    }
}

void fill(rapidjson::StringBuffer &buffer, const ScoreModel &model)
{
    fill(buffer, model,
         [&model](native::DocumentWriter &writer) { native::writeScore(writer, model); });
}

void fill(rapidjson::StringBuffer &buffer, const Clip &clip)
{
    ZARN_ASSERT_IN("zarn::io::NativeExporter::write", clip.model != nullptr);
    fill(buffer, *clip.model,
         [&clip](native::DocumentWriter &writer) { native::writeClip(writer, clip); });
}

void save(const rapidjson::StringBuffer &buffer, filesystem::FileHandle &handle)
{
    handle.writeBlock(buffer.GetString(), static_cast<std::int64_t>(buffer.GetSize()));
    if (!handle.close())
        ZARN_RAISE_IN("zarn::io::NativeExporter::write", handle.errorText());
}

} // namespace

NativeExporter::~NativeExporter() = default;

std::string NativeExporter::description() const
{
    return "Zarn score";
}

std::list<std::string> NativeExporter::extensions() const
{
    return {"zarn"};
}

void NativeExporter::write(const ScoreModel &model, filesystem::FileHandle &handle,
                           ExportReport &) const
{
    rapidjson::StringBuffer buffer;
    fill(buffer, model);
    save(buffer, handle);
}

void NativeExporter::write(const Clip &clip, filesystem::FileHandle &handle) const
{
    rapidjson::StringBuffer buffer;
    fill(buffer, clip);
    save(buffer, handle);
}

std::string NativeExporter::toText(const ScoreModel &model) const
{
    rapidjson::StringBuffer buffer;
    fill(buffer, model);
    return {buffer.GetString(), buffer.GetSize()};
}

std::string NativeExporter::toText(const Clip &clip) const
{
    rapidjson::StringBuffer buffer;
    fill(buffer, clip);
    return {buffer.GetString(), buffer.GetSize()};
}

} // namespace zarn::io
