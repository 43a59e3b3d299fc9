#!/usr/bin/env bash
# Makes the application icon's PNGs and OvrinLauncher.ico from launcher/resources/icon.svg.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
resources="$root/launcher/resources"
sizes=(16 24 32 48 64 128 256)

mkdir -p "$resources/icon"
for size in "${sizes[@]}"; do
    rsvg-convert --width "$size" --height "$size" --output "$resources/icon/$size.png" "$resources/icon.svg"
done

# An .ico is a header, one 16-byte entry an image, and the images; here each is its PNG file unchanged.
python3 - "$resources/OvrinLauncher.ico" "$resources/icon" "${sizes[@]}" <<'PYTHON'
import pathlib
import struct
import sys

target, folder = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
sizes = [int(size) for size in sys.argv[3:]]
images = [(folder / f"{size}.png").read_bytes() for size in sizes]

directory = struct.pack("<HHH", 0, 1, len(images))
offset = len(directory) + 16 * len(images)
for size, image in zip(sizes, images):
    side = size % 256  # 256 is written as 0
    directory += struct.pack("<BBBBHHII", side, side, 0, 0, 1, 32, len(image), offset)
    offset += len(image)
target.write_bytes(directory + b"".join(images))
PYTHON
echo "Made ${#sizes[@]} images and $resources/OvrinLauncher.ico"
