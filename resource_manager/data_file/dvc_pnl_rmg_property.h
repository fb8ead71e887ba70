#ifndef DVC_PNL_RMG_PROPERTY_H
#define DVC_PNL_RMG_PROPERTY_H

namespace velarion {

/** Language ids with a meaning of their own. What this header holds is constant: for any thread. */
struct DVC_PNL_RMG_PROPERTY {
    /** No language: an empty option language slot, or no preferred language. */
    static constexpr int LANGUAGE_ID_UNSET = 0;
    /** The language that takes the place of an unknown one. */
    static constexpr int LANGUAGE_ID_ENGLISH = 1;
    /** An option language, named by the option language id beside it. */
    static constexpr int LANGUAGE_ID_OPTION = 999;
};

/** Results of the data-file operations of both resource managers. */
constexpr int DVC_PNL_RMG_RESULT_OK = 0;
/** The file does not exist or cannot be opened; or the machine-specific path is empty. */
constexpr int DVC_PNL_RMG_RESULT_NOT_FOUND = 0x53023003;
/** A null or empty file name. */
constexpr int DVC_PNL_RMG_RESULT_INVALID_ARGUMENT = 0x53023004;
/** A file call of the platform or of the runtime library failed. */
constexpr int DVC_PNL_RMG_RESULT_IO_ERROR = 0x53023005;
/** An external image cannot be decoded or is already registered. */
constexpr int DVC_PNL_RMG_RESULT_IMAGE_ERROR = 0x53023006;

/** While this environment variable exists, missing texts and pictures come out as something to be seen. */
constexpr char DVC_PNL_RMG_TEST_AID[] = "TEST_ICON_MESSAGE";

} // namespace velarion

#endif
