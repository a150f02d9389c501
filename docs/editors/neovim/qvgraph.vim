" :make checks the configuration in the buffer; :copen lists the findings.
setlocal makeprg=qvgraph\ check\ --quiet\ --format\ gcc\ %:S
setlocal errorformat=%f:%l:%c:\ %trror:\ %m,%f:%l:%c:\ %tarning:\ %m,%f:%l:%c:\ %tote:\ %m
