// The findings for the door camera example with one mistake at a time.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/command_test.h"

namespace {

class DoorCameraTest : public CommandTest {
protected:
    // Replaces the first `right` of the example by `wrong`, and expects this report,
    // without the notes that the example itself has.
    void AssertReports(const std::string& right,
                       const std::string& wrong,
                       const std::string& report) {
        std::string text = readFile(QVGRAPH_EXAMPLES "/door-camera.json");
        const size_t at = text.find(right);
        ASSERT_NE(at, std::string::npos) << right;
        text.replace(at, right.size(), wrong);
        folder.write("door.json", text);
        EXPECT_EQ(Run({"check", "-q", "--ignore", "option-overridden,key-order", "door.json"}).out,
                  report);
    }
};

TEST_F(DoorCameraTest, ReportsAMisspeltStream) {
    AssertReports(
        R"("stream_input": "raw_frames")",
        R"("stream_input": "raw_frame")",
        R"(door.json:48:25: warning: stream 'raw_frame' has no producer in this pipe: no data ever arrives [no-producer]
   48 |         "stream_input": "raw_frame",
      |                         ^~~~~~~~~~~
      = hint: write 'raw_frames' if you intended that stream
)");
}

TEST_F(DoorCameraTest, ReportsAMissingFormat) {
    AssertReports(
        R"("stream_output": "raw_frames",
        "stream_fmt_out": "image:bayer12")",
        R"("stream_output": "raw_frames")",
        R"(door.json:36:9: error: output stream 'raw_frames' has no format: "stream_fmt_out" is missing, and node set-up throws [stream-format-missing]
   36 |         "stream_output": "raw_frames"
      |         ^~~~~~~~~~~~~~~
      = hint: add "stream_fmt_out": "..." to "stream_opts"
)");
}

TEST_F(DoorCameraTest, ReportsAnExtraComma) {
    AssertReports(R"("fps": 25
)",
                  R"("fps": 25,
)",
                  R"(door.json:34:7: error: expected '"' in object, got '}' (125) [syntax]
   34 |       },
      |       ^
      = hint: remove the comma before this bracket
)");
}

TEST_F(DoorCameraTest, ReportsAMissingComma) {
    AssertReports(R"("fps": 25
      },)",
                  R"("fps": 25
      })",
                  R"(door.json:35:7: error: expected ',' in object, got '"' (34) [syntax]
   35 |       "stream_opts": {
      |       ^
      = hint: add a comma before this key
)");
}

TEST_F(DoorCameraTest, ReportsANodeWithoutAName) {
    AssertReports(
        R"("node_name": "ImageTuner")",
        R"("name": "ImageTuner")",
        R"(door.json:41:7: error: 'node_1' has no "node_name" in "node_opts": no node is created [node-name]
   41 |       "node_opts": {
      |       ^~~~~~~~~~~
      = hint: add "node_name": "..." with the node's class
)");
}

TEST_F(DoorCameraTest, ReportsAnOnlyOutputWithAnIndex) {
    AssertReports(
        R"("stream_output": "frames")",
        R"("stream_output_0": "frames")",
        R"(door.json:50:9: error: 'stream_output_0' declares the node's only output, but its name is looked up under "stream_output": the device aborts [single-stream-key]
   50 |         "stream_output_0": "frames",
      |         ^~~~~~~~~~~~~~~~~
      = hint: rename it to "stream_output"
)");
}

TEST_F(DoorCameraTest, ReportsOneOfTwoInputsWithoutAnIndex) {
    AssertReports(
        R"("stream_input_0": "persons")",
        R"("stream_input": "persons")",
        R"(door.json:109:9: error: 'stream_input' declares one of 2 inputs, whose names are looked up only under 'stream_input_<k>': the device aborts [stream-keys-mixed]
  109 |         "stream_input": "persons",
      |         ^~~~~~~~~~~~~~
door.json:111:9: note: another input is declared here
  111 |         "stream_input_1": "faces",
      |         ^~~~~~~~~~~~~~~~
      = hint: rename it to 'stream_input_0', and its format likewise
)");
}

TEST_F(DoorCameraTest, ReportsAFormatThatDiffersFromTheProducers) {
    AssertReports(
        R"("stream_fmt_in": "image:bayer12")",
        R"("stream_fmt_in": "image:bayer10")",
        R"(door.json:49:26: warning: stream 'raw_frames' is consumed as 'image:bayer10', but 'node_0' produces it as 'image:bayer12': the device does not convert it [format-mismatch]
   49 |         "stream_fmt_in": "image:bayer10",
      |                          ^~~~~~~~~~~~~~~
door.json:37:27: note: format of the producer
   37 |         "stream_fmt_out": "image:bayer12"
      |                           ^~~~~~~~~~~~~~~
      = hint: use the same format at both ends of the stream
)");
}

TEST_F(DoorCameraTest, ReportsTwoProducersOfOneStream) {
    AssertReports(
        R"("stream_output": "faces")",
        R"("stream_output": "persons")",
        R"(door.json:100:26: error: stream 'persons' already has a producer, 'node_4'; the task graph refuses the second one, and node_5 is silently left uninitialised [two-producers]
  100 |         "stream_output": "persons",
      |                          ^~~~~~~~~
door.json:86:26: note: first produced here
   86 |         "stream_output": "persons",
      |                          ^~~~~~~~~
      = hint: give each stream a unique name
)");
}

TEST_F(DoorCameraTest, ReportsAnIdWithALeadingZero) {
    AssertReports(
        R"("node_3": {
      "node_opts": {"node_name": "Scaler)",
        R"("node_03": {
      "node_opts": {"node_name": "Scaler)",
        R"(door.json:64:5: error: 'node_03' has id 3, but there is no 'node_3': no node is created [id-not-canonical]
   64 |     "node_03": {
      |     ^~~~~~~~~
      = hint: rename it to 'node_3'
)");
}

TEST_F(DoorCameraTest, ReportsTwoNodesWithOneKey) {
    AssertReports(
        R"("node_4": {
      "node_opts": {
        "node_name": "Person)",
        R"("node_5": {
      "node_opts": {
        "node_name": "Person)",
        R"(door.json:90:5: warning: 'node_5' is already in this object: the device discards the earlier value and uses this one [duplicate-key]
   90 |     "node_5": {
      |     ^~~~~~~~
door.json:76:5: note: the earlier value
   76 |     "node_5": {
      |     ^~~~~~~~
      = hint: remove or rename one of them

door.json:109:27: warning: stream 'persons' has no producer in this pipe: no data ever arrives [no-producer]
  109 |         "stream_input_0": "persons",
      |                           ^~~~~~~~~
      = hint: name a stream that a node of the pipe produces, or add a producer
)");
}

TEST_F(DoorCameraTest, ReportsANumberOfThreadsInQuotes) {
    AssertReports(
        R"("exec_thread_num": 4)",
        R"("exec_thread_num": "4")",
        R"(door.json:11:40: warning: 'exec_thread_num' is a string, not a number: the device uses a thread count of 0 [thread-count]
   11 |     "thread_opts": {"exec_thread_num": "4"},
      |                                        ^~~
      = hint: write a whole number of at least 1, without quotes
)");
}

TEST_F(DoorCameraTest, ReportsAnOptionThatIsNotStored) {
    AssertReports(
        R"("wide_dynamic_range": "auto")",
        R"("wide_dynamic_range": true)",
        R"(door.json:43:31: warning: 'wide_dynamic_range' is a boolean, not a number or a string: it is not stored [option-not-stored]
   43 |         "wide_dynamic_range": true,
      |                               ^~~~
      = hint: write 1 instead of true
)");
}

TEST_F(DoorCameraTest, ReportsAnOptionThatIsTooLong) {
    AssertReports(
        R"("label": "Front door")",
        R"("label": "Front door Front door Front door Front door Front door Front door Front door Front door Front door Front door Front door Front door ")",
        R"(door.json:118:71: error: 'label' is a string of 132 bytes, but the maximum is 127: it is not stored [option-too-long]
  118 | ..._width": 2, "label": "Front door Front door Front door Front door Front door Front doo...
      |                         ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~
      = hint: shorten the string by 5 bytes
)");
}

TEST_F(DoorCameraTest, ReportsACommaInANumber) {
    AssertReports(
        R"("float:2.2")",
        R"("float:2,2")",
        R"(door.json:44:18: warning: 'gamma' is stored as 2.0: the device ignores ',2' after the number in 'float:2,2' [typed-value]
   44 |         "gamma": "float:2,2",
      |                  ^~~~~~~~~~~
      = hint: write "float:2.2"
)");
}

TEST_F(DoorCameraTest, ReportsHexadecimalForInt32) {
    AssertReports(
        R"("int64:0x400000000")",
        R"("int32:0x400000000")",
        R"(door.json:165:22: warning: 'max_bytes' is stored as 0: the device ignores 'x400000000' after the number in 'int32:0x400000000' [typed-value]
  165 |         "max_bytes": "int32:0x400000000",    // 16 GiB
      |                      ^~~~~~~~~~~~~~~~~~~
      = hint: write "int64:0x400000000"
)");
}

TEST_F(DoorCameraTest, ReportsAMisspeltTypeWord) {
    AssertReports(
        R"("int64:0x400000000")",
        R"("int46:0x400000000")",
        R"(door.json:165:22: warning: 'max_bytes' is stored as the string 'int46:0x400000000': 'int46' is not a type word [type-word]
  165 |         "max_bytes": "int46:0x400000000",    // 16 GiB
      |                      ^~~~~~~~~~~~~~~~~~~
      = hint: write "int64:0x400000000"
)");
}

TEST_F(DoorCameraTest, ReportsAGapBetweenPipes) {
    AssertReports(
        R"("pipe_1": {)",
        R"("pipe_2": {)",
        R"(door.json:197:3: error: index 1 has no pipe: the device queries indexes 0 to 1, and never reads 'pipe_2' [pipe-gap]
  197 |   "pipe_2": {
      |   ^~~~~~~~
      = hint: rename 'pipe_2' to 'pipe_1'
)");
}

TEST_F(DoorCameraTest, ReportsAMisspeltMode) {
    AssertReports(
        R"("stream_mode_in": "remain_newest",
        "stream_output": "persons")",
        R"("stream_mode_in": "remain-newest",
        "stream_output": "persons")",
        R"(door.json:85:27: warning: mode 'remain-newest' is not "remain_newest": the device ignores it [stream-mode]
   85 |         "stream_mode_in": "remain-newest",
      |                           ^~~~~~~~~~~~~~~
      = hint: write "remain_newest"
)");
}

TEST_F(DoorCameraTest, ReportsAMisspeltSection) {
    AssertReports(
        R"("port": 8554, "url": "rtsp://0.0.0.0/door"},
      "stream_opts")",
        R"("port": 8554, "url": "rtsp://0.0.0.0/door"},
      "stream_opt")",
        R"(door.json:176:5: error: 'node_11' has neither inputs nor outputs: node set-up fails [no-streams]
  176 |     "node_11": {
      |     ^~~~~~~~~
door.json:178:7: note: probably intended as "stream_opts"
  178 |       "stream_opt": {
      |       ^~~~~~~~~~~~
      = hint: rename 'stream_opt' to "stream_opts"
)");
}

TEST_F(DoorCameraTest, ReportsAMissingBracket) {
    AssertReports(R"(  }
}
)",
                  R"(  }
)",
                  R"(door.json:273:1: error: unexpected end of input [syntax]
  273 | 
      | ^
door.json:9:1: note: opened here
    9 | {
      | ^
      = hint: close the object with }
)");
}

TEST_F(DoorCameraTest, ReportsAFormatThatIsANumber) {
    AssertReports(
        R"("stream_fmt_in_0": "boxes")",
        R"("stream_fmt_in_0": 3)",
        R"(door.json:110:28: error: the format of the input stream is a number, not a string: node set-up throws [stream-not-text]
  110 |         "stream_fmt_in_0": 3,
      |                            ^
      = hint: write a plain string of at most 127 bytes
)");
}

TEST_F(DoorCameraTest, ReportsOneFormatForTwoInputs) {
    AssertReports(
        R"(        "stream_fmt_in_1": "boxes",
)",
        R"()",
        R"(door.json:111:9: error: input stream 'faces' has no format: 'stream_fmt_in_1' is missing, and node set-up throws [stream-format-missing]
  111 |         "stream_input_1": "faces",
      |         ^~~~~~~~~~~~~~~~
      = hint: add "stream_fmt_in_1": "..." to "stream_opts"
)");
}

TEST_F(DoorCameraTest, ReportsAMisspeltNodeKey) {
    AssertReports(
        R"("node_12": {)",
        R"("nod_12": {)",
        R"(door.json:183:5: warning: 'nod_12' is not a reserved key of a pipe: the device ignores it [unknown-key]
  183 |     "nod_12": {
      |     ^~~~~~~~
      = hint: rename it to 'node_12'
)");
}

TEST_F(DoorCameraTest, ReportsSingleQuotes) {
    AssertReports(R"("codec": "h265")",
                  R"("codec": 'h265')",
                  R"(door.json:133:18: error: expected value, got ''' (39) [syntax]
  133 |         "codec": 'h265',
      |                  ^
      = hint: use double quotes instead of single quotes
)");
}

TEST_F(DoorCameraTest, ReportsAnEmptyStreamName) {
    AssertReports(
        R"("stream_output": "tracks")",
        R"("stream_output": "")",
        R"(door.json:113:26: error: the name of the output stream is empty; the task graph refuses it, and node_6 is silently left uninitialised [stream-name-empty]
  113 |         "stream_output": "",
      |                          ^~
      = hint: name the stream
)");
}

TEST_F(DoorCameraTest, ReportsOptionsOutsideNodeOpts) {
    AssertReports(
        R"("node_opts": {"node_name": "Overlay", "line_width": 2, "label": "Front door"},)",
        R"("node_name": "Overlay", "line_width": 2, "label": "Front door",)",
        R"(door.json:117:5: error: 'node_7' has no "node_opts": no node is created [node-name]
  117 |     "node_7": {
      |     ^~~~~~~~
door.json:118:7: note: this has no effect here
  118 |       "node_name": "Overlay", "line_width": 2, "label": "Front door",
      |       ^~~~~~~~~~~
      = hint: move 'node_name' into "node_opts"

door.json:118:31: warning: 'line_width' is not a reserved key of a node: the device ignores it [unknown-key]
  118 |       "node_name": "Overlay", "line_width": 2, "label": "Front door",
      |                               ^~~~~~~~~~~~
      = hint: move it into "node_opts" if it is an option

door.json:118:48: warning: 'label' is not a reserved key of a node: the device ignores it [unknown-key]
  118 |       "node_name": "Overlay", "line_width": 2, "label": "Front door",
      |                                                ^~~~~~~
      = hint: move it into "node_opts" if it is an option
)");
}

TEST_F(DoorCameraTest, ReportsAFractionThatIsDropped) {
    AssertReports(
        R"("gain_db": "float:6")",
        R"("gain_db": 6.5)",
        R"(door.json:207:94: warning: 'gain_db' is stored as 6: the device drops the fraction of '6.5' [number-lost]
  207 | ...opts": {"node_name": "SoundCapture", "device": "hw:0", "rate": 16000, "gain_db": 6.5},
      |                                                                                     ^~~
      = hint: write "float:6.5"
)");
}

TEST_F(DoorCameraTest, ReportsAStreamInTheExtraOptions) {
    AssertReports(
        R"("stream_opts": {
        "stream_input": "preview_video")",
        R"("stream_opts_extra": {
        "stream_input": "preview_video")",
        R"(door.json:176:5: error: 'node_11' has neither inputs nor outputs: node set-up fails [no-streams]
  176 |     "node_11": {
      |     ^~~~~~~~~
door.json:179:9: note: this has no effect here
  179 |         "stream_input": "preview_video",
      |         ^~~~~~~~~~~~~~
door.json:180:9: note: this has no effect here
  180 |         "stream_fmt_in": "video:h264"
      |         ^~~~~~~~~~~~~~~
      = hint: move 'stream_input' and 'stream_fmt_in' into "stream_opts"
)");
}

TEST_F(DoorCameraTest, ReportsAMisspeltKey) {
    AssertReports(
        R"("stream_output": "sound")",
        R"("stream_ouput": "sound")",
        R"(door.json:244:9: warning: 'stream_ouput' is not a reserved key, but resembles "stream_output": the device stores it as an ordinary option [unknown-key]
  244 |         "stream_ouput": "sound",
      |         ^~~~~~~~~~~~~~
      = hint: rename it to "stream_output"
)");
}

}  // namespace
