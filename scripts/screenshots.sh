#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Makes the pictures of docs/images anew, by driving camera-host off screen.
# Usage: screenshots.sh [path of camera-host]
set -euo pipefail
cd "$(dirname "$0")/.."
host="${1:-build/dev/bin/camera-host}"
[ -x "$host" ] || { echo "screenshots: no $host; build it first" >&2; exit 1; }
export QT_QPA_PLATFORM=offscreen
mkdir -p docs/images
picture() { # NAME LANGUAGE STEPS
    "$host" --size 1000x760 --language "$2" --do "$3; wait=400; picture=docs/images/$1.png" >/dev/null 2>&1
}
picture window-en en "select=Acquisition Control; wait=400; select=Exposure Time"
picture window-zh zh "select=采集控制; wait=400; select=曝光时间"
picture search-en en "search=exposure"
picture search-zh zh "search=曝光"
picture page-common-en en "tab=1; select=ISP; wait=400; set=Gamma Enable:1"
picture page-common-zh zh "tab=1; select=图像信号处理; wait=400; set=伽马使能:1"
picture page-trigger-en en "tab=2; set=Trigger Mode:On; wait=400; set=Enable Auto Trigger:1"
picture page-trigger-zh zh "tab=2; set=触发模式:开启; wait=400; set=自动触发使能:1"
picture user-sets-en en "choose=ORXFeatureUserLevel:Guru; settle; press=ORXFeatureSave"
picture user-sets-zh zh "choose=ORXFeatureUserLevel:资深; settle; press=ORXFeatureSave"
picture page-image-roi-en en "choose=ORXFeatureUserLevel:Guru; settle; tab=3; select=ROI; wait=400"
picture page-image-roi-zh zh "choose=ORXFeatureUserLevel:资深; settle; tab=3; select=感兴趣区域（ROI）; wait=400"
picture page-image-lut-en en "tab=3; select=LUT; set=LUT Enable:1; wait=400; set=Line Type:Curve"
picture page-image-lut-zh zh "tab=3; select=查找表（LUT）; set=查找表使能:1; wait=400; set=曲线类型:曲线"
# What changed and why, and feature files; each story takes pictures of its own.
stories="$PWD/hosts/camera/stories"
host="$(realpath "$host")"
for language in en zh; do
    (cd docs/images && "$host" --size 1000x760 --language "$language" \
        --do "$stories/tour-$language.steps" >/dev/null 2>&1)
done
(cd docs/images && "$host" --size 1000x760 --do "$stories/trend.steps" >/dev/null 2>&1)
rm -f docs/images/tour.features
