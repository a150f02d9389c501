-- Checks a configuration each time it is saved, and shows the findings as
-- diagnostics. Set PATTERN to match your configurations.
local PATTERN = "*/pipes/*.json"

local space = vim.api.nvim_create_namespace("qvgraph")
local severities = {
  error = vim.diagnostic.severity.ERROR,
  warning = vim.diagnostic.severity.WARN,
  note = vim.diagnostic.severity.INFO,
}

-- Neovim counts lines and bytes from 0.
local function diagnostic(found)
  local first, last = found.range.start, found.range["end"]
  local message = found.message
  if type(found.hint) == "string" then
    message = message .. "\n" .. found.hint
  end
  local lines = vim.fn.getline(first.line)
  return {
    lnum = first.line - 1,
    col = vim.str_byteindex(lines, math.min(first.column - 1, vim.fn.strchars(lines))),
    end_lnum = last.line - 1,
    message = message,
    severity = severities[found.severity],
    code = found.code,
    source = "qvgraph",
  }
end

local function check(event)
  local report = vim.fn.system({ "qvgraph", "check", "--quiet", "--format", "json", event.file })
  local ok, decoded = pcall(vim.json.decode, report)
  if ok then
    vim.diagnostic.set(space, event.buf, vim.tbl_map(diagnostic, decoded.diagnostics))
  end
end

vim.api.nvim_create_autocmd("BufWritePost", { pattern = PATTERN, callback = check })
