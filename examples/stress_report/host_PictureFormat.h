#ifndef ORV_STRESS_REPORT_HOST_PICTUREFORMAT_H
#define ORV_STRESS_REPORT_HOST_PICTUREFORMAT_H

enum class host_PictureFormat { Png, Svg, Pdf };

#endif
