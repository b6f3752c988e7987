#!/usr/bin/perl
# The first sheet of a spreadsheet file as a foreign reader sees it: the widths, then a line a row. A cell is its shown
# text and in brackets its type, b for bold, and its side (0 general, 2 centre, 3 right).
use strict;
use warnings;
use Spreadsheet::ParseExcel;

binmode STDOUT, ':utf8';
my $parser = Spreadsheet::ParseExcel->new;
my $book = $parser->parse($ARGV[0]) or die $parser->error;
my $sheet = $book->worksheet(0);
my ($first, $last) = $sheet->row_range;
my ($left, $right) = $sheet->col_range;
print join('|', map { $_ // '-' } @{$sheet->{ColWidth}}), "\n";
for my $row ($first .. $last) {
    my @cells;
    for my $column ($left .. $right) {
        my $cell = $sheet->get_cell($row, $column);
        push @cells, '-' and next unless $cell;
        my $format = $cell->get_format;
        push @cells, $cell->value . '[' . substr($cell->type, 0, 1) . ($format->{Font}{Bold} ? 'b' : '') . $format->{AlignH} . ']';
    }
    print join('|', @cells), "\n";
}
