#compdef idlexport
# Completes the command line of idlexport in zsh.

_arguments -s -S \
  '*'{-a,--artifact=}'[export this artifact]:artifact:' \
  '--check[check the model and write no IDL]' \
  '--color=[colour the diagnostics]:when:(auto always never)' \
  '--depfile=[write a rule for make that names the files read]:file:_files' \
  '--diagnostics=[choose the form of diagnostics]:form:(text gcc json sarif)' \
  '--file-name=[name the main file]:name:' \
  '--graph=[draw what uses what]:file:_files -g "*.(dot|svg)"' \
  '(- *)'{-h,--help}'[print the help and exit]' \
  '--list[list the artifacts that can be exported]' \
  '*--map=[read what begins with a prefix from a directory]:PREFIX=DIR:' \
  '--mapping=[spread modules over files]:mapping:(one-file module-flat module-structured)' \
  '--oneway-default=[make operations oneway]:default:(true false)' \
  {-o,--output=}'[put the files there]:directory:_files -/' \
  '--outputs[list the files that an export makes]' \
  '--prune[remove files of earlier exports]' \
  {-q,--quiet}'[leave out progress and what has no consequence]' \
  '--stamp=[touch this file after a successful run]:file:_files' \
  '--strict[take what is not legal for an error]' \
  '--suffix=[put a text behind the name of each file]:text:' \
  '--summary[tell at the end what was done]' \
  '--target=[name the target of the rule for make]:name:' \
  '--verbatim[write everything as the model has it]' \
  '--verify[compare with the files in place]' \
  '(- *)--version[print the version and exit]' \
  '--werror[fail when there are warnings]' \
  '*:model:_files -g "*.(uml|xmi|xml)"'
