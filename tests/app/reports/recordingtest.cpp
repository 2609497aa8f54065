#include "reports/recording.h"

namespace {

RunInputs someInputs()
{
    RunInputs inputs;
    inputs.device = "folder/d.json";
    inputs.texts.definition = "{\r\n\t\"x\": \"\\\"é\\\"\"\n}";
    inputs.texts.compiled = "{\"nstates\": 0}";
    inputs.stimuli = {{"s.json", "{}"}, {"<standard input>", "{\"until\": 1}\n"}};
    inputs.parameters = {{"P \"Q\"", "1k"}, {"P \"Q\"", "2k"}};
    inputs.until = "10n";
    inputs.resolution = "1p";
    return inputs;
}

std::string refusalOf(const std::string& text)
{
    try {
        readRecording(text);
    } catch (const std::exception& error) {
        return error.what();
    }
    return "";
}

} // namespace

TEST(Recording, GivesBackAllThatWentIn)
{
    const RunInputs inputs = someInputs();
    const RunInputs read = readRecording(recordingOf(inputs));
    EXPECT_EQ(read.device, inputs.device);
    EXPECT_EQ(read.texts.definition, inputs.texts.definition);
    EXPECT_EQ(read.texts.compiled, inputs.texts.compiled);
    ASSERT_EQ(read.stimuli.size(), 2u);
    for (std::size_t index = 0; index < 2; ++index) {
        EXPECT_EQ(read.stimuli[index].name, inputs.stimuli[index].name);
        EXPECT_EQ(read.stimuli[index].text, inputs.stimuli[index].text);
    }
    EXPECT_EQ(read.parameters, inputs.parameters);
    EXPECT_EQ(read.until, inputs.until);
    EXPECT_EQ(read.resolution, inputs.resolution);
    EXPECT_EQ(recordingOf(read), recordingOf(inputs));
}

TEST(Recording, KeepsEveryByteOfATextOfTheRun)
{
    RunInputs inputs = someInputs();
    std::string& text = *inputs.texts.definition;
    text.clear();
    for (int byte = 0; byte < 256; ++byte)
        text += static_cast<char>(byte);
    EXPECT_EQ(readRecording(recordingOf(inputs)).texts.definition, text);
}

TEST(Recording, LeavesOutWhatWasNotGiven)
{
    RunInputs inputs;
    inputs.device = "d";
    inputs.texts.compiled = "{}";
    const RunInputs read = readRecording(recordingOf(inputs));
    EXPECT_EQ(read.texts.definition, std::nullopt);
    EXPECT_TRUE(read.stimuli.empty());
    EXPECT_TRUE(read.parameters.empty());
    EXPECT_EQ(read.until, std::nullopt);
    EXPECT_EQ(read.resolution, "1f");
}

TEST(Recording, IsRefusedWhenItIsNone)
{
    EXPECT_EQ(refusalOf(""), "invalid JSON 'expected value' at line 1 character 1");
    EXPECT_EQ(refusalOf("[]"), "not a recording of a run");
    EXPECT_EQ(refusalOf("{}"), "not a recording of a run");
    EXPECT_EQ(refusalOf(R"({"recording": 2})"), "not a recording of a run");
    EXPECT_EQ(refusalOf(R"({"recording": "1"})"), "not a recording of a run");
    EXPECT_EQ(refusalOf(R"({"recording": 1, "device": "d"})"), "the recording has no device");
    for (
        const char* damaged :
        {R"({"recording": 1})", R"({"recording": 1, "device": 5, "definition": ""})",
         R"({"recording": 1, "device": "d", "definition": 5})",
         R"({"recording": 1, "device": "d", "definition": ""})",
         R"({"recording": 1, "device": "d", "definition": "", "stimuli": 5})",
         R"({"recording": 1, "device": "d", "definition": "", "stimuli": [["s"]], "parameters": [], "resolution": "1f"})",
         R"({"recording": 1, "device": "d", "definition": "", "stimuli": [["s", 5]], "parameters": [], "resolution": "1f"})",
         R"({"recording": 1, "device": "d", "definition": "", "stimuli": ["s"], "parameters": [], "resolution": "1f"})",
         R"({"recording": 1, "device": "d", "definition": "", "stimuli": [], "parameters": [[]], "resolution": "1f"})",
         R"({"recording": 1, "device": "d", "definition": "", "stimuli": [], "parameters": []})",
         R"({"recording": 1, "device": "d", "definition": "", "stimuli": [], "parameters": [], "resolution": 1})",
         R"({"recording": 1, "device": "d", "definition": "", "stimuli": [], "parameters": [], "resolution": "1f", "until": 1})"})
        EXPECT_NE(refusalOf(damaged), "") << damaged;
}
