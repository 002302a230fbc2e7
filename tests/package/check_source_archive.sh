#!/usr/bin/env bash
# Packs the last commit of a source folder twice, in different environments, and unpacks the archive into
# SCRATCH/unpacked. Fails if the archives differ or do not contain exactly the files of the commit.
#
#   check_source_archive.sh SOURCE-FOLDER SCRATCH

set -euo pipefail
source_folder=$1
scratch=$2

rm -rf "$scratch"
mkdir -p "$scratch/unpacked"
"$source_folder/scripts/source-archive" "$scratch/first"
(umask 077 && TZ=Asia/Tokyo "$source_folder/scripts/source-archive" "$scratch/second")
archive=$(compgen -G "$scratch/first/docparser-*.tar.xz")
cmp "$archive" "$scratch/second/${archive##*/}"

tar --extract --file "$archive" --directory "$scratch/unpacked" --strip-components=1
diff <(git -C "$source_folder" ls-tree -r -z --name-only HEAD | tr '\0' '\n' | sort) \
    <(cd "$scratch/unpacked" && find . ! -type d -printf '%P\n' | sort)
