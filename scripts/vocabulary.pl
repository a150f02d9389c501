# Reports the phrases of a list in files, as FILE:LINE: 'PHRASE': use WORDING.
# Ends with 1 if there are any.
#
#   perl scripts/vocabulary.pl LIST FILE...
use strict;
use warnings;

my ($list, @files) = @ARGV;
my (@phrases, %exempt);
open my $lines, '<', $list or die "$list: $!\n";
while (my $line = <$lines>) {
    chomp $line;
    if ($line =~ /^!\s*(\S+)/) {
        $exempt{$1} = 1;
    } elsif ($line =~ /^([^#].*?)\s+\|\s+(.*)$/) {
        my ($phrase, $use) = ($1, $2);
        $phrase =~ s/ /\\s/g;
        push @phrases, [qr/(?<![\w-])(?:$phrase)(?![\w-])/i, $use];
    } elsif ($line =~ /\S/ && $line !~ /^#/) {
        die "$list: not PHRASE | WORDING: $line\n";
    }
}
die "$list: no phrases\n" unless @phrases;

my $found = 0;
for my $file (grep { !$exempt{$_} && -f } @files) {
    open my $input, '<', $file or die "$file: $!\n";
    my $text = do { local $/; <$input> } // '';
    next if $text =~ /\0/;
    # One blank or line break between two words, without comment leaders and quotes.
    $text =~ s{[ \t"]*\n[ \t]*(?:(?://+|#+|\*|\.\\"|")(?=[ \t]|\w)[ \t]*)?}{\n}g;
    $text =~ s/[ \t]+/ /g;
    # The words of a test's title.
    $text =~ s{^(TEST(?:_F|_P)?\()(.*)$}{
        my ($macro, $title) = ($1, $2);
        $title =~ s/(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])/ /g;
        $macro . $title
    }gme;
    my @hits;
    for my $phrase (@phrases) {
        while ($text =~ /$phrase->[0]/g) {
            my $line = 1 + (substr($text, 0, $-[0]) =~ tr/\n//);
            (my $match = $&) =~ s/\s+/ /g;
            push @hits, [$line, "$file:$line: '$match': use $phrase->[1]\n"];
        }
    }
    print $_->[1] for sort { $a->[0] <=> $b->[0] } @hits;
    $found += @hits;
}
exit($found > 0);
