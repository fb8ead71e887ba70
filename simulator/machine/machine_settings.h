#ifndef MACHINE_SETTINGS_H
#define MACHINE_SETTINGS_H

#include <QString>

namespace velarion {

enum class copy_sides { ONE_TO_ONE, ONE_TO_TWO, TWO_TO_TWO, TWO_TO_ONE };
enum class color_mode { AUTO, FULL, BLACK_WHITE };
enum class original_type { TEXT, TEXT_PHOTO, PHOTO };

constexpr int MOST_COPIES = 999;
constexpr int LEAST_RATIO = 25; // %
constexpr int MOST_RATIO = 400; // %
constexpr int DARKEST = 3;      // the lightest is its negative

struct copy_settings {
    int copies = 1;
    int ratio = 100; ///< %
    copy_sides sides = copy_sides::ONE_TO_ONE;
    int tray = 0;    ///< 0: chosen by the machine
    int density = 0; ///< -DARKEST to DARKEST
    color_mode color = color_mode::AUTO;
    original_type original = original_type::TEXT_PHOTO;
};

enum class file_format { PDF, PDF_A, JPEG, TIFF };

struct scan_settings {
    int destination = -1; ///< place in scan_destinations(), -1: none is chosen
    file_format format = file_format::PDF;
    int resolution = 300; ///< dpi
    color_mode color = color_mode::AUTO;
    original_type original = original_type::TEXT_PHOTO;
};

enum class fax_resolution { STANDARD, FINE };

struct fax_settings {
    QString number; ///< digits, * and #
    fax_resolution resolution = fax_resolution::STANDARD;
};

struct sound_settings {
    bool keys = true;   ///< a sound for each key
    int key_volume = 3; ///< 0 to MOST_VOLUME
    int done_volume = 4;
    int error_volume = 4;
};
constexpr int MOST_VOLUME = 5;

struct network_settings {
    bool has_dhcp = true;
    QString address = QStringLiteral("192.0.2.27");
    QString mask = QStringLiteral("255.255.255.0");
    QString gateway = QStringLiteral("192.0.2.1");
    QString name_server = QStringLiteral("192.0.2.53");
    QString host_name = QStringLiteral("panel-2-south");
    QString hardware_address = QStringLiteral("00:00:5E:00:53:1B");
    bool has_ipv6 = true;
    bool has_wireless = false;
};

} // namespace velarion

#endif
