# Sourced by the scripts that show printed pages: from a file to PostScript with the filters of CUPS,
# to pages with a PostScript interpreter, to a picture of all pages. No print server takes part.

filters=/usr/lib/cups/filter

# The document of the project's own examples.
#   sample_document OUT.pdf
sample_document() {
  gs -q -dSAFER -dNOPAUSE -dBATCH -sDEVICE=pdfwrite -sOutputFile="$1" \
    "$project/scripts/lib/sample-document.ps"
}

# What a printer with this PPD file is sent for a PDF file: copies and job options ("NAME=VALUE ...")
# are those of a job.
#   print_through_filters PPD COPIES OPTIONS FILE.pdf OUT.ps
print_through_filters() {
  local job=(1 user document "$2" "$3") log=${5%.ps}.filters.log
  PPD=$1 "$filters/pdftopdf" "${job[@]}" "$4" 2>"$log" |
    CONTENT_TYPE=application/vnd.cups-pdf PPD=$1 "$filters/pdftops" "${job[@]}" >"$5" 2>>"$log" ||
    { cat "$log" >&2; fail "the print system's filters could not make PostScript of $4"; }
}

# The pages that an interpreter makes of PostScript: at a printer's resolution, then made smaller.
#   interpret FILE.ps DPI PREFIX      PREFIX1.png PREFIX2.png ...
interpret() {
  rm -f "$3"[0-9]*.png
  gs -q -dSAFER -dNOPAUSE -dBATCH -sDEVICE=png16m -r$(($2 * 8)) -dDownScaleFactor=8 \
    -sOutputFile="$3%d.png" "$1" >&2 || fail "the interpreter could not make pages of $1"
}

# Pictures side by side, each with a thin frame, on gray.
#   contact_sheet OUT.png PICTURE...
contact_sheet() {
  local out=$1 folder picture number=100
  shift
  folder=$(mktemp -d)
  for picture in "$@"; do
    pngtopam "$picture" | pnmmargin -color "rgb:90/90/90" 1 | pnmmargin -color "rgb:e4/e4/e4" 10 \
      >"$folder/$number"
    number=$((number + 1))
  done
  pnmcat -lr -white "$folder"/* | pnmtopng -quiet -compression 9 >"$out" || fail "cannot write $out"
  rm -rf "$folder"
}
